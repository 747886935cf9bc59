#include "reports/definicion_informe.h"

#include "sesion/instalacion.h"
#include "sesion/tfdm.h"

#include <QFile>

QStringList impresoras_de_informes() {
    QFile archivo(diraplicacion_callada() + QStringLiteral("/impresoras.cfg"));
    QStringList nombres;
    if (archivo.open(QIODevice::ReadOnly | QIODevice::Text))
        while (!archivo.atEnd())
            nombres << QString::fromLocal8Bit(archivo.readLine())
                           .section(QLatin1Char(','), 1)
                           .trimmed();
    return nombres;
}

DefinicionInforme::DefinicionInforme(QObject* dueno)
    : QFormato(dueno, "QFormato", fdm().Quorvex,
               "SELECT * FROM FORMATOS_CONTABLES WHERE FOCO_ID = :ID"),
      QFormadatos(dueno, "QFormadatos", fdm().Quorvex,
                  "SELECT * FROM FORMATOCONTABLE_DETALLE WHERE FOCO_ID = :FOCO_ID"),
      QFormalineas(dueno, "QFormalineas", fdm().Quorvex,
                   "SELECT * FROM FORMATOCONTABLE_TEXTOS WHERE FOCO_ID = :FOCO_ID"),
      PFormato(dueno, "PFormato", &QFormato, poCascadeDeletes | poCascadeUpdates),
      CFormato(dueno, "CFormato", &PFormato), CFormadatos(dueno, "CFormadatos"),
      CFormalineas(dueno, "CFormalineas") {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    QFormadatos.enlace_maestra(&QFormato, {"FOCO_ID"});
    QFormalineas.enlace_maestra(&QFormato, {"FOCO_ID"});

    CFormato.entero("FOCO_ID").requerido().banderas(kLlave).etiqueta("Código");
    CFormato.texto("FOCO_NOMBRE", 60).etiqueta("Nombre");
    CFormato.entero("FOCO_IMPRESORA").etiqueta("Impresora");
    CFormato.entero("FOCO_LINEAS").etiqueta("Líneas");
    CFormato.texto("FOCO_TITULO", 60).etiqueta("Título");
    CFormato.texto("FOCO_SUBTITULO", 255).etiqueta("Subtítulo");
    CFormato.decimal("FOCO_FACTOR").etiqueta("Factor conversión");
    CFormato.entero("FOCO_PAGINAS").etiqueta("Páginas");
    CFormato.bandera("FOCO_NIIF").etiqueta("Cuentas Niif");

    CFormadatos.anide_en(&CFormato, &QFormadatos);
    CFormalineas.anide_en(&CFormato, &QFormalineas);
    for (ConjuntoDatos* c : {&CFormadatos, &CFormalineas}) {
        c->entero("FOCO_ID").banderas(kLlave);
        c->entero("FOCD_ITEM").requerido().banderas(kLlave).etiqueta("#");
        c->CampoConsecutivo = "FOCD_ITEM"; // dos editores pueden agregar a la vez
        c->entero("FOCD_POSX").etiqueta("Pos X");
        c->entero("FOCD_POSY").etiqueta("Pos Y");
        c->texto("FOCD_FONT", 60).etiqueta("Font");
        c->entero("FOCD_FSIZE").etiqueta("Tamaño");
        c->entero("FOCD_PAGINA").etiqueta("Pag.");
    }
    CFormadatos.entero("FOCD_INI").etiqueta("Inicio");
    CFormadatos.entero("FOCD_LONG").etiqueta("Tam/Dig");
    CFormadatos.texto("FOCD_OPER", 1).etiqueta("Oper");
    CFormadatos.texto("FOCD_CUENTAS", 255).etiqueta("Dato a imprimir");
    CFormadatos.texto("FOCD_PROY", 4).etiqueta("Proyecto");
    CFormadatos.texto("FOCD_CENTRO", 4).etiqueta("Centro");
    CFormadatos.decimal("FOCD_FACTOR").etiqueta("Factor");
    CFormalineas.texto("FOCD_TIPO", 1).etiqueta("Tipo");
    CFormalineas.texto("FOCD_CADENA", 255).etiqueta("Texto");
    CFormalineas.entero("FOCD_X").etiqueta("Tam. X");
    CFormalineas.entero("FOCD_Y").etiqueta("Tam Y");
    CFormalineas.blob("FOCD_IMAGEN");
}

bool DefinicionInforme::abra(int codigo) {
    CFormato.Close();
    CFormato.FetchParams();
    CFormato.Params["ID"] = codigo;
    CFormato.Open();
    return !CFormato.IsEmpty();
}

void DefinicionInforme::cierre() {
    for (ConjuntoDatos* c : {&CFormadatos, &CFormalineas, &CFormato})
        c->Cancel();
    CFormato.Close();
}

QString DefinicionInforme::impresora() const {
    const Campo& numero = CFormato.FieldByName("FOCO_IMPRESORA");
    return numero.nulo() ? QString() : impresoras_de_informes().value(int(numero.entero()));
}
