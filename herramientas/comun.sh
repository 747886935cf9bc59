# Lo que comparten ./ejecutar y ./probar. Se incluye; no se ejecuta.
raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
construccion=$raiz/build
export LANG=${LANG:-C.UTF-8} DEBIAN_FRONTEND=noninteractive

como_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# Solo llama a apt-get cuando falta algo.
instale_paquetes() {
    local faltan=() paquete
    for paquete in $(sed 's/#.*//' "$raiz/paquetes.txt"); do
        dpkg-query -W -f='${db:Status-Status}' "$paquete" 2>/dev/null | grep -qx installed ||
            faltan+=("$paquete")
    done
    [ ${#faltan[@]} = 0 ] && return
    echo "Instalando: ${faltan[*]}"
    como_root apt-get update -q
    como_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${faltan[@]}"
}

# Construye los objetivos dados; sin ellos, todo.
construya() {
    cmake -S "$raiz" -B "$construccion" -G Ninja >"$raiz/.configuracion.log" 2>&1 || {
        cat "$raiz/.configuracion.log"
        return 1
    }
    rm -f "$raiz/.configuracion.log"
    ninja -C "$construccion" "$@"
}
