#!/usr/bin/env bash
# Recorrido guiado: abre el programa en una pantalla virtual de 1366x768, lo maneja con teclas
# verdaderas y deja en recorrido/ fotos numeradas y los informes en PDF. Trabaja sobre una copia de
# la demostración, así que siempre empieza igual.
#
#   herramientas/recorrido.sh CARPETA_DEMO USUARIO CLAVE_OFUSCADA
#   QUORVEX_RECORRIDO=CARPETA    dónde deja las fotos
#   QUORVEX_ESCENAS=CARPETA      otras escenas que las de herramientas/recorrido
set -euo pipefail
. "$(dirname "$0")/comun.sh"
demo=$1 usuario=$2 clave=$3
fotos=${QUORVEX_RECORRIDO:-$raiz/recorrido}
trabajo=$(mktemp -d)
numero=0
programa= pantalla= gestor=

termine() {
    # El motor de la base, que va dentro del programa, se queda con el aviso de terminar.
    [ -n "$programa" ] && kill -KILL "$programa" 2>/dev/null || true
    for proceso in $programa $gestor $pantalla; do
        kill "$proceso" 2>/dev/null && wait "$proceso" 2>/dev/null || true
    done
    rm -rf "$trabajo"
}
trap termine EXIT

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
export XDG_CONFIG_HOME=$trabajo/preferencias QT_QPA_PLATFORM=xcb

Xvfb -r -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$trabajo/monitor" 2>/dev/null &
pantalla=$!
for _ in $(seq 100); do [ -s "$trabajo/monitor" ] && break; sleep 0.1; done
[ -s "$trabajo/monitor" ] || {
    echo "Xvfb no arrancó." >&2
    exit 1
}
export DISPLAY=:$(cat "$trabajo/monitor")
openbox --config-file "$raiz/herramientas/openbox.xml" 2>/dev/null &
gestor=$!
sleep 0.5

# --- manos y ojos
viva() {
    kill -0 "$programa" 2>/dev/null && return
    local estado=0
    wait "$programa" || estado=$?
    echo "El programa terminó antes de tiempo, con $estado."
    exit 1
}
espere() { sleep "${1:-0.5}"; calma; }
# calma: espera a que el programa atienda lo que le llegó; en un equipo ocupado las pausas no
# bastan.
calma() {
    local antes= ahora quietas=0
    for _ in $(seq 400); do
        # Estado y tiempo de procesador: dormido, y sin gastar nada desde la mirada anterior.
        ahora=$(sed 's/.*) //' "/proc/$programa/stat" 2>/dev/null | cut -d' ' -f1,12,13) || return 0
        if [ "${ahora%% *}" = S ] && [ "$ahora" = "$antes" ]; then
            quietas=$((quietas + 1))
            [ "$quietas" = 3 ] && return 0
        else
            quietas=0
        fi
        antes=$ahora
        sleep 0.04
    done
}
# foco: en un equipo muy ocupado, al cerrar un diálogo el teclado puede quedar sin dueño.
foco() {
    local duena
    duena=$(xdotool getactivewindow getwindowpid 2>/dev/null) || true
    [ "$duena" = "$programa" ] ||
        xdotool search --onlyvisible --name "Quorvex 2018" windowactivate 2>/dev/null || true
}
# teclas F2 Return ...: cada una por aparte, con un respiro.
teclas() {
    local tecla
    foco
    for tecla in "$@"; do
        xdotool key --clearmodifiers "$tecla"
        espere 0.12
    done
    espere 0.3
}
escriba() { foco; xdotool type --delay 15 "$1"; espere 0.25; }
# linea CELDA...: una fila de una rejilla con Enter; una celda vacía se deja como esté.
linea() {
    local celda
    for celda in "$@"; do
        [ -n "$celda" ] && escriba "$celda"
        teclas Return
    done
}
# opcion LETRA...: en un menú de botones, hasta la que empieza por ellas, y la abre.
opcion() {
    teclas "$@" Return
    espere 0.8
}
foto() {
    viva
    espere "${2:-0.4}"
    numero=$((numero + 1))
    import -window root "$fotos/$(printf '%02d' "$numero")_$1.png"
    echo "  $(printf '%02d' "$numero") $1"
}
espere_ventana() {
    for _ in $(seq 150); do
        xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 && return
        viva
        sleep 0.2
    done
    echo "No apareció la ventana «$1»."
    exit 1
}

# a_pdf NOMBRE [HOJAS]: graba el informe que ya pidió sus opciones y deja la imagen de sus primeras
# hojas junto a las fotos.
pdfs=0
a_pdf() {
    local nombre=$1 hojas=${2:-2}
    espere_ventana "Opciones de impresión"
    teclas alt+a alt+f
    escriba "PDF"
    [ "$pdfs" = 0 ] && foto "opciones_$nombre"
    teclas Return
    espere_ventana "Guardar"
    teclas ctrl+a
    escriba "$fotos/$nombre.pdf"
    teclas Return
    for _ in $(seq 150); do [ -s "$fotos/$nombre.pdf" ] && break; viva; sleep 0.2; done
    if [ ! -s "$fotos/$nombre.pdf" ]; then
        foto "sin_$nombre"
        echo "No se grabó $nombre.pdf"
        exit 1
    fi
    espere 0.3
    foco
    pdftoppm -r 80 -png -l "$hojas" "$fotos/$nombre.pdf" "$fotos/${nombre}_hoja"
    pdfs=$((pdfs + 1))
    echo "     $nombre.pdf"
}

# --- sin línea de órdenes no se entra
"$construccion/bin/quorvex-contabilidad" &
programa=$!
espere_ventana "Contabilidad"
foto acceso_negado 1.2
teclas Return
wait "$programa" || true

# --- entrada
"$construccion/bin/quorvex-contabilidad" PUENTES "$usuario" 001 "$clave" &
programa=$!
espere_ventana "Contabilidad NIIF"
foto formulario_principal 1.5

shopt -s nullglob
for guion in "${QUORVEX_ESCENAS:-$raiz/herramientas/recorrido}"/*.sh; do
    . "$guion"
done

# --- salida
teclas ctrl+s
for _ in $(seq 50); do kill -0 "$programa" 2>/dev/null || break; sleep 0.1; done
if kill -0 "$programa" 2>/dev/null; then
    foto no_cerro
    echo "El programa no cerró con Ctrl+S."
    exit 1
fi
programa=
if [ -s "$trabajo/aplicacion/ERRORES.TXT" ]; then
    cp "$trabajo/aplicacion/ERRORES.TXT" "$fotos/"
    echo "Fallas anotadas durante el recorrido:"
    iconv -f ISO-8859-1 -t UTF-8 "$trabajo/aplicacion/ERRORES.TXT"
fi
"$construccion/bin/quorvex-admin" verificar --ubicacion "$trabajo" --compania 001
echo "Recorrido terminado: $numero fotos y $pdfs informes en PDF en $fotos"
