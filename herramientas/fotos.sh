#!/usr/bin/env bash
# Fotos de todas las pantallas registradas, con datos vacíos, corrientes y extremos. Deja en CARPETA
# una por pantalla, otra por cada una de sus hojas con pestaña y, si está imagemagick, hojas de
# contacto para mirarlas juntas. Sin CUÁLES, las toma a 100, 150 y 200 % en 1366x768 y en el doble,
# en claro, y a 100 % en oscuro.
#
#   herramientas/fotos.sh CARPETA [MONITOR_ESCALA_TEMA...]      por ejemplo 1366x768_1.5_oscuro
set -euo pipefail
raiz=$(cd "$(dirname "$0")/.." && pwd)
carpeta=$1
shift
# Con el equipo ocupado una serie tarda más de lo que Qt le da a una prueba.
export QTEST_FUNCTION_TIMEOUT=3600000
export QT_QPA_PLATFORM=offscreen QUORVEX_PROYECTO=$raiz QUORVEX_CONSTRUCCION=$raiz/build
fallas=0
[ $# = 0 ] && set -- {1366x768,2732x1536}_{1,1.5,2}_claro 1366x768_1_oscuro

for cual in "$@"; do
    IFS=_ read -r monitor escala tema <<<"$cual"
    fotos=$carpeta/$cual
    mkdir -p "$fotos"
    echo "monitor $monitor, escala $escala, tema $tema"
    mal=0
    QUORVEX_FOTOS=$fotos QUORVEX_MONITOR=$monitor QT_SCALE_FACTOR=$escala QUORVEX_TEMA=$tema \
        "$raiz/build/bin/prueba_aspecto" cada_pantalla_se_lee_entera >"$fotos/prueba.txt" 2>&1 || {
        mal=1
        grep -E 'Tf[a-z0-9]+: |FAIL' "$fotos/prueba.txt" | sed 's/^/    /' || true
    }
    for datos in vacios corrientes extremos; do
        archivos=("$fotos/${datos}_"*.png)
        if [ ! -f "${archivos[0]}" ]; then
            echo "    sin fotos con datos $datos"
            mal=1
            continue
        fi
        command -v montage >/dev/null || continue
        # Reducidas al leerlas: a 200 % no caben juntas en la memoria que se le da.
        montage -label '%t' "${archivos[@]/%/[660x400>]}" -tile 3x4 -geometry '660x400>+3+3' \
            "$fotos/hoja_${datos}_%02d.png" || mal=1
    done
    fallas=$((fallas + mal)) # la serie que falla se cuenta y se sigue con las demás
done
exit "$fallas"
