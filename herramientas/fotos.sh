#!/usr/bin/env bash
# Fotos de todas las pantallas registradas, a 100, 150 y 200 % en 1366x768 y en el doble, con datos
# vacíos, corrientes y extremos, en claro y en oscuro. Deja en CARPETA una por pantalla y, si está
# imagemagick, hojas de contacto para mirarlas juntas.
#
#   herramientas/fotos.sh CARPETA [construcción]
set -euo pipefail
raiz=$(cd "$(dirname "$0")/.." && pwd)
carpeta=$1
construccion=${2:-$raiz/build}
export QT_QPA_PLATFORM=offscreen QUORVEX_PROYECTO=$raiz QUORVEX_CONSTRUCCION=$construccion
fallas=0

# tome NOMBRE MONITOR ESCALA TEMA
tome() {
    local fotos=$carpeta/$1
    mkdir -p "$fotos"
    echo "$1: monitor $2, escala $3, tema $4"
    if ! QUORVEX_FOTOS=$fotos QUORVEX_MONITOR=$2 QT_SCALE_FACTOR=$3 QUORVEX_TEMA=$4 \
        "$construccion/bin/prueba_aspecto" >"$fotos/prueba.txt" 2>&1; then
        fallas=$((fallas + 1))
        grep -E 'Tf[a-z0-9]+: |FAIL' "$fotos/prueba.txt" | sed 's/^/    /' || true
    fi
    command -v montage >/dev/null || return 0
    local datos
    for datos in vacios corrientes extremos; do
        montage "$fotos/${datos}_"*.png -tile 5x4 -geometry 640x420+4+4 -label '%t' \
            "$fotos/hoja_$datos.png"
    done
}

for monitor in 1366x768 2732x1536; do
    for escala in 1 1.5 2; do
        tome "${monitor}_$escala" "$monitor" "$escala" claro
    done
done
tome 1366x768_oscuro 1366x768 1 oscuro
exit "$fallas"
