#include "assets/tfvalactivo.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"
#include "assets/procesos_activos.h"
#include "toolkit/aire.h"
#include "toolkit/disposicion_flujo.h"

#include <QFile>
#include <QFileInfo>

Tfvalactivo::Tfvalactivo() : FormaProceso(valoracion(), SinArmar{}) {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = CProceso;
    c.texto("ACFJ_COD", 15).banderas(kLlave).etiqueta("Activo");
    for (const char* columna : {"ACFV_VALOR", "ACFV_VRUSO", "ACFJ_CSUSO", "ACFV_PRVENTA",
                                "ACFV_CSVENTA", "ACFV_VRRECUP", "ACFV_DIFER"})
        c.decimal(columna).formato("#,###.00");
    for (const char* columna : {"ACFV_VRUSO", "ACFJ_CSUSO", "ACFV_PRVENTA", "ACFV_CSVENTA"})
        c.FieldByName(columna).OnChange = [this](Campo&) { recalcule(); };
    // El valor en libros es el de la fecha: entre el 1 y el fin de mes está la depreciación.
    c.FieldByName("ACFV_FECHA").OnChange = [this](Campo&) { lea_valor(); };
    c.memo("ACFV_OBS").etiqueta("Observaciones");
    c.blob("ACFV_DOCUMENTO");
    c.interno("VrUso", ClaseCampo::Decimal, 2).formato("#,###.00");
    c.interno("VrRazon", ClaseCampo::Decimal, 2).formato("#,###.00");
    ECodigo = caja_que_muestra("ECodigo", 56);
    EDocumento = caja_que_muestra("EDocumento", 40);
    EDocumento->setPlaceholderText("F8 agrega el documento de soporte");
    arme();
    tamano(900, 460);
}

QWidget* Tfvalactivo::importe(const char* columna, const char* nombre) {
    auto* e = new EditorDato(&CProceso, columna);
    e->setObjectName(nombre);
    e->ancho(18);
    return e;
}

void Tfvalactivo::bajo_el_encabezado(Formulario& f) {
    const auto lectura = [this](const char* columna, const char* nombre) {
        QWidget* e = importe(columna, nombre);
        static_cast<EditorDato*>(e)->ReadOnly(true);
        e->setFocusPolicy(Qt::NoFocus);
        return e;
    };
    auto* observaciones = new MemoDato(&CProceso, "ACFV_OBS");
    observaciones->setObjectName("EObs");
    observaciones->lineas(3);
    f.fila("Activo",
           en_flujo({ECodigo, con_rotulo("Valor en libros", lectura("ACFV_VALOR", "EValor"))},
                    paso()));
    // Sus cajas quedan una debajo de la otra.
    const auto segunda = [ancho = QLabel("Deterioro/Superavit:").sizeHint().width()](
                             const QString& texto, QWidget* caja) {
        QWidget* conjunto = con_rotulo(texto, caja);
        auto* rotulo = conjunto->findChild<QLabel*>();
        rotulo->setMinimumWidth(ancho);
        rotulo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        return conjunto;
    };
    // La operación se lee seguida aunque la resta y su resultado pasen a otro renglón.
    const bool caben_juntos = area_de_ventanas().width() >= paso(85);
    const auto operacion = [&](QWidget* valor, QWidget* costo, QWidget* resultado,
                               const char* de_que) {
        resultado->setAccessibleName(de_que);
        QWidget* igual_a = Formulario::junto({new QLabel("="), resultado});
        return caben_juntos ? en_flujo({valor, Formulario::junto({costo, igual_a})}, paso())
                            : en_flujo({valor, costo, igual_a}, paso());
    };
    f.fila("Valor en Uso = Valor uso producción:",
           operacion(importe("ACFV_VRUSO", "EVrUso"),
                     segunda("- Costo uso", importe("ACFJ_CSUSO", "ECsUso")),
                     lectura("VrUso", "EUso"), "Valor en uso"));
    f.fila("Valor Razonable = Precio de venta:",
           operacion(importe("ACFV_PRVENTA", "EPrVenta"),
                     segunda("- Costo venta", importe("ACFV_CSVENTA", "ECsVenta")),
                     lectura("VrRazon", "ERazon"), "Valor razonable"));
    f.fila("Valor recuperable:",
           en_flujo({lectura("ACFV_VRRECUP", "EVrRecup"),
                     segunda("Deterioro/Superavit", lectura("ACFV_DIFER", "EDifer"))},
                    paso()));
    f.fila("Observaciones", observaciones);
    f.fila("Documento", EDocumento);
}

void Tfvalactivo::botones_propios(BarraBotones& barra) {
    barra.boton("SBDocum", "F8:Docum.", "application-pdf", Qt::Key_F8,
                [this] { escoja_documento(); });
}

void Tfvalactivo::FormCreate() {
    const QString codigo = peticion<AbreActivo>().activo_seleccionado;
    fdm().QBorrar.Open("select ACFJ_DESC FROM ACTIVOS_FIJOS WHERE ACFJ_COD = " + QuotedStr(codigo));
    const bool hay = !fdm().QBorrar.IsEmpty();
    ECodigo->setText(codigo + "  " + fdm().QBorrar.Fields(0).texto());
    fdm().QBorrar.Close();
    if (!hay) {
        muestre_mensaje("No se encontró el activo " + codigo);
        pida_cierre_al_crear();
        return;
    }
    FormaProceso::FormCreate();
}

void Tfvalactivo::nueva_fila() {
    campo("ACFJ_COD") = peticion<AbreActivo>().activo_seleccionado;
    campo("ACFV_FECHA") = fdmcnt().compone_fecha("1");
}

Valor Tfvalactivo::comprobante_hecho() const {
    return fdm().Quorvex.consulte("select acfv_idcomp from activos_fijos_valor where acfj_cod = ? "
                                  "and acfv_fecha = ?",
                                  {campo("ACFJ_COD").valor(), campo("ACFV_FECHA").valor()});
}

void Tfvalactivo::lea_valor() {
    fdm().QBorrar.Open("select VALOR from ACTIVO_VALOR(" + QuotedStr(campo("ACFJ_COD").texto()) +
                       ',' + QuotedStr(campo("ACFV_FECHA").texto()) + ",'S')");
    const Moneda valor = fdm().QBorrar.Fields(0).moneda();
    fdm().QBorrar.Close();
    if (!campo("ACFV_VALOR").nulo() && campo("ACFV_VALOR").moneda() == valor)
        return;
    campo("ACFV_VALOR") = valor;
    if (!campo("ACFV_VRRECUP").nulo())
        recalcule();
}

void Tfvalactivo::SBGrabarClick() {
    if (!EDia->text().isEmpty()) {
        // Con la pantalla abierta, otro pudo depreciarlo o cambiarle el valor.
        const Valor fecha = campo("ACFV_FECHA").valor();
        const Moneda antes = campo("ACFV_VALOR").moneda();
        CProceso.Edit();
        ponga_fecha();
        lea_valor();
        const Moneda ahora = campo("ACFV_VALOR").moneda();
        if (ahora != antes && campo("ACFV_FECHA").valor() == fecha) {
            muestre_mensaje(
                QStringLiteral("Otro proceso cambió el valor en libros del activo: era %1 y es %2. "
                               "Revise la diferencia y grabe otra vez.")
                    .arg(antes.formateada(), ahora.formateada()));
            return;
        }
    }
    FormaProceso::SBGrabarClick();
}

void Tfvalactivo::recalcule() {
    const Moneda uso = campo("ACFV_VRUSO").moneda() - campo("ACFJ_CSUSO").moneda(),
                 venta = campo("ACFV_PRVENTA").moneda() - campo("ACFV_CSVENTA").moneda();
    campo("VrUso") = uso;
    campo("VrRazon") = venta;
    campo("ACFV_VRRECUP") = qMax(uso, venta);
    campo("ACFV_DIFER") = campo("ACFV_VRRECUP").moneda() - campo("ACFV_VALOR").moneda();
}

void Tfvalactivo::escoja_documento() {
    const QString ruta = QFileDialog::getOpenFileName(
        this, "Documento de soporte", {}, "Documentos e imágenes (*.pdf *.png *.jpg *.jpeg)");
    if (!ruta.isEmpty())
        cargue_documento(ruta);
}

void Tfvalactivo::cargue_documento(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorDatos(QStringLiteral("No se pudo leer el archivo %1.").arg(ruta));
    campo("ACFV_DOCUMENTO") = archivo.readAll();
    EDocumento->setText(QFileInfo(ruta).fileName());
}
