#!/usr/bin/env bash
# Recorrido guiado: abre el programa en una pantalla virtual de 1366x768, lo maneja con teclas
# verdaderas y deja en recorrido/ fotos numeradas y los informes en PDF. Trabaja sobre una copia de
# la demostración, así que siempre empieza igual.
#
#   herramientas/recorrido.sh CARPETA_DEMO USUARIO CLAVE_OFUSCADA
#   QUORVEX_RECORRIDO=CARPETA    dónde deja las fotos
#   QUORVEX_ESCENAS=CARPETA      otras escenas que las de herramientas/recorrido
#   QUORVEX_SIN_FOTOS=1          solo teclea y comprueba
#   QUORVEX_CIFRAS=1             la demostración es la de las pruebas: los papeles dicen sus cifras
#
# Al cerrar se compara lo que se tecleó con lo que quedó. Las pantallas que ninguna escena abrió
# quedan en sin_abrir.txt.
set -euo pipefail
. "$(dirname "$0")/comun.sh"
demo=$1 usuario=$2 clave=$3
fotos=${QUORVEX_RECORRIDO:-$raiz/recorrido}
con_fotos=$([ -n "${QUORVEX_SIN_FOTOS:-}" ] || echo 1)
trabajo=$(mktemp -d)
programa= pantalla= gestor= guion=
. "$raiz/herramientas/manos.sh"
. "$raiz/herramientas/comprobaciones.sh"

termine() {
    # El motor de la base, que va dentro del programa, se queda con el aviso de terminar.
    [ -n "$programa" ] && kill -KILL "$programa" 2>/dev/null || true
    for proceso in $programa $gestor $pantalla; do
        kill "$proceso" 2>/dev/null && wait "$proceso" 2>/dev/null || true
    done
    rm -rf "$trabajo"
}
trap termine EXIT

[ -n "${QUORVEX_CIFRAS:-}" ] ||
    echo "Las cifras de los papeles no se revisan: son de la demostración de las pruebas."

# --- escena
# Solo se borra lo que dejó otro recorrido.
if [ "$fotos" != "$raiz/recorrido" ] && [ -n "$(ls -A "$fotos" 2>/dev/null)" ] &&
    [ ! -e "$fotos/.recorrido" ]; then
    echo "$fotos tiene archivos que no son de un recorrido: indique otra carpeta." >&2
    exit 1
fi
rm -rf "$fotos"
mkdir -p "$fotos" "$trabajo/aplicacion"
touch "$fotos/.recorrido"
cp -r "$demo/datos" "$trabajo/datos"
"$construccion/bin/quorvex-admin" conexion --ubicacion "$trabajo" \
    --carpeta "$trabajo/aplicacion" >/dev/null
mkdir "$fotos/certificados"
"$construccion/bin/quorvex-admin" configurar --ubicacion "$trabajo" --compania 001 CONTABILIDAD \
    GENERAL "CARPETA PARA UBICAR ARCHIVOS DE CERTIFICADOS GENERADOS COMO PDF" \
    "$fotos/certificados" >/dev/null
export QUORVEX_DIRECTORIO=$trabajo/aplicacion
export XDG_CONFIG_HOME=$trabajo/preferencias XDG_DATA_HOME=$trabajo/del_usuario
export XDG_RUNTIME_DIR=$trabajo/de_la_sesion
mkdir -m 700 "$XDG_RUNTIME_DIR"
export QT_QPA_PLATFORM=xcb QT_LOGGING_RULES="quorvex.pantallas.debug=true"
# Los papeles y las hojas que el programa abre con otro no se miran aquí.
mkdir "$trabajo/ordenes"
ln -s /bin/true "$trabajo/ordenes/xdg-open"
export PATH=$trabajo/ordenes:$PATH
export QUORVEX_HOJA_CALCULO=${QUORVEX_HOJA_CALCULO:-/bin/true}
anote_lo_que_hay

abra_pantalla

# --- sin línea de órdenes no se entra
"$construccion/bin/quorvex-contabilidad" 2>>"$trabajo/programa.log" &
programa=$!
espere_ventana "Contabilidad"
foto acceso_negado 1.2
xdotool key Return # y el programa termina
wait "$programa" || true

# --- entrada
"$construccion/bin/quorvex-contabilidad" PUENTES "$usuario" 001 "$clave" \
    2>>"$trabajo/programa.log" &
programa=$!
espere_ventana "Contabilidad NIIF"
foto formulario_principal 1.5

shopt -s nullglob
for guion in "${QUORVEX_ESCENAS:-$raiz/herramientas/recorrido}"/*.sh; do
    [ -n "$con_fotos" ] || echo "${guion##*/} $SECONDS s"
    . "$guion"
done

# --- salida
xdotool key --clearmodifiers ctrl+s
for _ in $(seq 600); do kill -0 "$programa" 2>/dev/null || break; sleep 0.1; done
kill -0 "$programa" 2>/dev/null && falle "El programa no cerró con Ctrl+S."
wait "$programa" || falle "El programa terminó con $?."
programa=
estado=0
# Las pantallas registradas que nadie abrió.
cuales() { sed -n "s/^quorvex.pantallas: $1 //p" "$trabajo/programa.log" | sort -u; }
comm -23 <(cuales registrada) <(cuales abierta) >"$fotos/sin_abrir.txt"
grep -v '^quorvex.pantallas: ' "$trabajo/programa.log" | sort -u || true
if [ -s "$trabajo/aplicacion/ERRORES.TXT" ]; then
    cp "$trabajo/aplicacion/ERRORES.TXT" "$fotos/"
    echo "Fallas anotadas durante el recorrido:"
    iconv -f ISO-8859-1 -t UTF-8 "$trabajo/aplicacion/ERRORES.TXT"
    estado=1
fi
compruebe || estado=1
"$construccion/bin/quorvex-admin" verificar --ubicacion "$trabajo" --compania 001 || estado=1
echo "Recorrido terminado: $numero fotos y $pdfs informes en PDF en $fotos;" \
    "$(wc -l <"$fotos/sin_abrir.txt") pantallas sin abrir"
exit "$estado"
