#!/usr/bin/env bash
# El programa de verdad, con teclas verdaderas y sin ratón: hace todas las escenas del recorrido
# sobre una demostración pequeña y compara lo tecleado con lo que quedó. Además, ninguna pantalla
# puede quedar sin que una escena la abra, salvo las que sin_abrir.tsv nombra con su razón.
#
#   tests/recorrido/prueba_teclas_de_fuera.sh CONSTRUCCIÓN
set -euo pipefail
aqui=$(cd "$(dirname "$0")" && pwd)
raiz=$(cd "$aqui/../.." && pwd)
administrador=$1/bin/quorvex-admin
visto=$1/teclas_de_fuera # lo que se veía al fallar
carpeta=$(mktemp -d)
termine() {
    if [ -e "$carpeta/fotos/falla.png" ]; then
        mkdir -p "$visto"
        cp "$carpeta/fotos/falla.png" "$visto/"
        echo "Lo que se veía: $visto/falla.png"
    fi
    rm -rf "$carpeta"
}
trap termine EXIT
rm -rf "$visto"
export QUORVEX_GUIONES=$raiz/database
"$administrador" crear-demo --lineas 1500 --ubicacion "$carpeta" >/dev/null
"$administrador" crear-demo --codigo 002 --lineas 300 --ubicacion "$carpeta" >/dev/null
clave=$("$administrador" clave --ubicacion "$carpeta" --codigo ADMIN --compania 001 |
    sed -n 's/^Clave: //p')
QUORVEX_CIFRAS=1 QUORVEX_SIN_FOTOS=1 QUORVEX_RECORRIDO=$carpeta/fotos \
    "$raiz/herramientas/recorrido.sh" "$carpeta" ADMIN "$clave"

# --- las pantallas que nadie abrió
sed '/^#/d' "$aqui/sin_abrir.tsv" | cut -f1 | sort >"$carpeta/con_razon"
if ! diff "$carpeta/con_razon" "$carpeta/fotos/sin_abrir.txt" >"$carpeta/diferencia"; then
    sed -n 's/^> /Ninguna escena abre /p; s/^< /Ya la abre una escena: /p' "$carpeta/diferencia"
    exit 1
fi
