# Manos y ojos de quien maneja el programa desde fuera: teclas verdaderas, sin ratón. Se incluye; no
# se ejecuta. Espera siempre a que el programa haya atendido lo que le llegó, nunca un tiempo.
# Usa $trabajo, $fotos, $programa, $gestor, $pantalla y $con_fotos.
numero=0
pdfs=0
mkfifo "$trabajo/nadie"
exec {nadie}<>"$trabajo/nadie"

# abra_pantalla: la virtual, con un gestor de ventanas que no tiene teclas propias.
abra_pantalla() {
    # Sin -noreset, al irse el primer cliente olvidaría el teclado que aquí se le pone.
    # Con -dumbSched no tiene reloj propio, que a veces se queda andando y nunca habría calma.
    Xvfb -r -noreset -dumbSched -displayfd 3 -screen 0 1366x768x24 -nolisten tcp \
        3>"$trabajo/monitor" 2>/dev/null &
    pantalla=$!
    for _ in $(seq 600); do [ -s "$trabajo/monitor" ] && break; sleep 0.1; done
    [ -s "$trabajo/monitor" ] || {
        echo "Xvfb no arrancó." >&2
        exit 1
    }
    export DISPLAY=:$(cat "$trabajo/monitor")
    # Las letras del español con tecla propia: si xdotool las pusiera y quitara al vuelo, el
    # programa podría leer el teclado cuando ya las quitó.
    local codigo=208 letra orden=
    for letra in aacute eacute iacute oacute uacute ntilde; do
        orden+="s/key <I$codigo> .*/key <I$codigo> { [ $letra, ${letra^} ] };/;"
        codigo=$((codigo + 1))
    done
    xkbcomp -w 0 "$DISPLAY" - | sed "$orden" | xkbcomp -w 0 - "$DISPLAY" 2>/dev/null
    # El ratón, lejos: un menú que se abra debajo de él señalaría lo que nadie señaló.
    xdotool mousemove 1365 767
    openbox --config-file "$raiz/herramientas/openbox.xml" 2>/dev/null &
    gestor=$!
    for _ in $(seq 600); do
        xdotool get_desktop >/dev/null 2>&1 && return
        sleep 0.05
    done
    echo "openbox no arrancó." >&2
    exit 1
}

# falle MENSAJE: lo dice, con el renglón de la escena, y deja lo que se ve en falla.png.
falle() {
    local i donde=
    for i in "${!BASH_SOURCE[@]}"; do
        [[ ${BASH_SOURCE[$i]} == */[0-9][0-9]_*.sh ]] && {
            donde="${BASH_SOURCE[$i]##*/}:${BASH_LINENO[$((i - 1))]}: "
            break
        }
    done
    import -window root "$fotos/falla.png" 2>/dev/null || true
    echo "$donde$*" | tee -a "$trabajo/falla"
    exit 1
}
viva() {
    kill -0 "$programa" 2>/dev/null && return
    local estado=0
    wait "$programa" || estado=$?
    falle "El programa terminó antes de tiempo, con $estado."
}

# quieto: todos los hilos del programa, del gestor y de la pantalla duermen; en $gasto queda lo que
# cada uno ha corrido, en nanosegundos si el sistema los cuenta.
reloj=schedstat
[ -r /proc/self/schedstat ] || reloj=stat
quieto() {
    local proceso hilo renglon corrido
    gasto=
    for proceso in $programa $gestor $pantalla; do
        for hilo in /proc/"$proceso"/task/*; do
            { read -r renglon <"$hilo/stat" && read -r corrido <"$hilo/$reloj"; } 2>/dev/null ||
                continue
            case ${renglon##*) } in R* | D*) return 1 ;; esac
            gasto+=" $corrido"
        done
    done
}
# calma: tres miradas seguidas en que nadie hizo nada.
calma() {
    local antes= quietas=1 hasta=$((SECONDS + 180))
    while [ "$SECONDS" -lt "$hasta" ]; do
        if quieto; then
            [ "$gasto" = "$antes" ] && quietas=$((quietas + 1)) || quietas=1
            [ "$quietas" = 3 ] && return 0
            antes=$gasto
        else
            quietas=0 antes=
        fi
        # Un plazo que se vence leyendo lo que nadie escribe: sin procesos que gasten.
        read -rt 0.012 -u "$nadie" || true
    done
    falle "El programa no acabó de atender la última tecla."
}
# espere SEGUNDOS: lo que necesite quien mira las fotos; sin ellas, solo la calma.
espere() {
    [ -z "$con_fotos" ] || sleep "${1:-0.5}"
    calma
}
# foco: en un equipo muy ocupado, al cerrar un diálogo el teclado puede quedar sin dueño.
foco() {
    local duena
    duena=$(xdotool getactivewindow getwindowpid 2>/dev/null) || true
    [ "$duena" = "$programa" ] && return
    xdotool search --onlyvisible --name "Quorvex 2018" windowactivate 2>/dev/null || true
    calma
}
# teclas F2 Return ...: cada una cuando se atendió la anterior.
teclas() {
    local tecla
    foco
    for tecla in "$@"; do
        xdotool key --clearmodifiers --delay 1 "$tecla"
        calma
    done
    viva
}
escriba() {
    foco
    xdotool type --clearmodifiers --delay 3 -- "$1"
    calma
}
# veces N TECLA
veces() {
    local i
    for ((i = 0; i < $1; i++)); do teclas "$2"; done
}
# linea CELDA...: una fila de una rejilla con Enter; una celda vacía se deja como esté.
linea() {
    local celda
    for celda in "$@"; do
        [ -n "$celda" ] && escriba "$celda"
        teclas Return
    done
}
# fila CELDA...: en una rejilla donde Enter no avanza; queda en la última celda.
fila() {
    local celda primera=1
    for celda in "$@"; do
        [ -n "$primera" ] || teclas Tab
        primera=
        [ -z "$celda" ] || escriba "$celda"
    done
}
# opcion LETRA...: en un menú de botones, hasta la que empieza por ellas, y la abre.
opcion() { teclas "$@" Return; }

foto() {
    [ -n "$con_fotos" ] || return 0 # quien tecleó ya esperó
    espere "${2:-0.4}"
    viva
    numero=$((numero + 1))
    import -window root "$fotos/$(printf '%02d' "$numero")_$1.png"
    echo "  $(printf '%02d' "$numero") $1"
}
hay_ventana() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
# aguarde FALTA ORDEN...: hasta que la orden acierte y haya calma.
aguarde() {
    local falta=$1 hasta=$((SECONDS + 120))
    shift
    while [ "$SECONDS" -lt "$hasta" ]; do
        "$@" && calma && return
        viva
        read -rt 0.05 -u "$nadie" || true
    done
    falle "$falta"
}
espere_ventana() { aguarde "No apareció la ventana «$1»." hay_ventana "$1"; }
# espere_aviso: el de los mensajes, que es del programa y no una ventana: se le ve el color.
espere_aviso() { aguarde "No apareció el aviso de un mensaje." se_ve_el_aviso; }
se_ve_el_aviso() {
    # Quien busca lee hasta el final: si se fuera antes, la foto quedaría por fallida.
    import -window root -depth 8 -format %c histogram:info:- |
        grep -E ' [0-9]{5,}: .*#80FFFF' >/dev/null
}
# espere_archivo RUTA: que esté entero, porque el programa ya no lo toca.
espere_archivo() { aguarde "No se grabó ${1##*/}." [ -s "$1" ]; }

# grabe_en RUTA: en el diálogo de grabar que está abierto, hasta que el archivo esté.
grabe_en() {
    espere_ventana "^Guardar"
    teclas ctrl+a
    escriba "$1"
    teclas Return
    # Si la carpeta acaba de leerse, esa la toma la lista de los nombres que el diálogo sugiere.
    hay_ventana "^Guardar" && teclas Return
    espere_archivo "$1"
}
# guarde_lista NOMBRE: la rejilla que tiene el teclado, por su menú y en un archivo de texto.
guarde_lista() {
    teclas Menu g
    grabe_en "$fotos/$1.txt"
}

# cifras_de NOMBRE N M: de cada renglón de la lista guardada, las primeras N palabras y las últimas
# M, sin comas ni rayas.
cifras_de() {
    tr -d '\r' <"$fotos/$1.txt" | awk -v n="$2" -v m="$3" '
        raya && NF {
            linea = ""
            for (i = 1; i <= NF; i++)
                if (i <= n || i > NF - m) linea = linea " " $i
            gsub("[,/]", "", linea)
            print substr(linea, 2)
        }
        /^--/ { raya = 1 }'
}

# a_pdf NOMBRE [HOJAS]: graba el informe que ya pidió sus opciones, mira que diga lo suyo y deja la
# imagen de sus primeras hojas junto a las fotos.
a_pdf() {
    local nombre=$1 hojas=${2:-2}
    espere_ventana "Opciones de impresión"
    teclas alt+a alt+f
    escriba "PDF"
    [ "$pdfs" = 0 ] && foto "opciones_$nombre"
    teclas Return
    grabe_en "$fotos/$nombre.pdf"
    foco
    local textos
    IFS=$'\t' read -ra textos < \
        <(sed -n "s/^$nombre\t//p" "$raiz/herramientas/recorrido/papeles.tsv") || true
    # Las cifras son de la demostración de las pruebas; en otra, solo lo primero: su título, o lo
    # que el recorrido tecleó.
    [ -n "${QUORVEX_CIFRAS:-}" ] || textos=("${textos[0]:-}")
    pdf_dice "$nombre" "${textos[@]:-}"
    [ -z "$con_fotos" ] ||
        pdftoppm -r 80 -png -l "$hojas" "$fotos/$nombre.pdf" "$fotos/${nombre}_hoja"
    pdfs=$((pdfs + 1))
    echo "     $nombre.pdf"
}
# hay_aviso: un diálogo espera respuesta.
hay_aviso() { hay_ventana "^Contabilidad - Quorvex 2018$"; }
# veces_abierta PANTALLA
veces_abierta() { grep -c "^quorvex.pantallas: abierta $1$" "$trabajo/programa.log" || true; }
