#include "herramientas/documentos.h"

namespace {

Valor nula_si_cero(Moneda valor) {
    return valor.es_cero() ? Valor() : Valor(valor);
}

Valor nula_si_invalida(QDate fecha) {
    return fecha.isValid() ? Valor(fecha) : Valor();
}

/// Lo que la base conoce y un documento puede nombrar.
struct Catalogo {
    explicit Catalogo(Conexion& c)
        : terceros(textos_de(c, "select terc_nit from terceros")),
          centros(textos_de(c, "select proy_cod || '-' || cent_cod from centros")),
          articulos(textos_de(c, "select arti_cod from articulo")),
          conceptos(textos_de(c, "select coin_familia || ' ' || coin_concepto"
                                 " from concepto_interfaz")),
          numeros(textos_de(c, "select tido_cod || '/' || pref_pre || '/' || docu_numero || '/' ||"
                               " cuba_cod from documento where docu_anulado = 'N'")) {
        const auto filas = c.abra("select tido_cod, doct_familia from documento_contable");
        while (filas->siguiente())
            familias[int(filas->valor(0).entero())] = filas->valor(1).texto();
    }
    QSet<QString> terceros, centros, articulos, conceptos, numeros;
    QHash<int, QString> familias;
};

/// Lee los datos de un renglón, comprobando cada uno; lo que queda sin leer es una clave mal
/// escrita.
class Datos {
public:
    Datos(const RenglonTexto& renglon, const Catalogo& catalogo, Faltas& faltas)
        : renglon_(renglon), restan_(renglon.datos), catalogo_(catalogo), faltas_(faltas) {}

    QString texto(const char* clave, int largo) {
        const QString v = restan_.take(QLatin1String(clave));
        if (v.size() > largo)
            falte(
                QStringLiteral("'%1' pasa de %2 caracteres").arg(QLatin1String(clave)).arg(largo));
        return v;
    }
    Moneda monto(const char* clave, int decimales = 2) {
        return lea_monto(restan_.take(QLatin1String(clave)), QLatin1String(clave), decimales);
    }
    std::optional<Moneda> monto_opcional(const char* clave) {
        if (!restan_.contains(QLatin1String(clave)))
            return {};
        return monto(clave);
    }
    Moneda lea_monto(const QString& texto, const QString& nombre, int decimales = 2) {
        const auto valor = Moneda::intente(texto);
        if (!valor || valor->redondeada(decimales) != *valor) {
            falte(QStringLiteral("'%1' no es un valor con %2 decimales: %3")
                      .arg(nombre, QString::number(decimales), texto));
            return {};
        }
        return *valor;
    }
    QDate fecha(const char* clave, bool exigida = false) {
        const QString v = restan_.take(QLatin1String(clave));
        const QDate f = QDate::fromString(QString(v).replace('-', '/'), "yyyy/MM/dd");
        if (!f.isValid() && (exigida || !v.isEmpty()))
            falte(
                QStringLiteral("'%1' no es una fecha aaaa/mm/dd: %2").arg(QLatin1String(clave), v));
        return f;
    }
    int entero(const char* clave) {
        const QString v = restan_.take(QLatin1String(clave));
        bool numero = true;
        const int n = v.isEmpty() ? 0 : v.toInt(&numero);
        if (!numero || n < 0)
            falte(QStringLiteral("'%1' no es un número: %2").arg(QLatin1String(clave), v));
        return n;
    }
    QString conocido(const char* clave, const QSet<QString>& cuales, const char* que) {
        const QString v = restan_.take(QLatin1String(clave));
        if (!v.isEmpty() && !cuales.contains(v))
            falte(QStringLiteral("no existe %1 %2").arg(QString::fromUtf8(que), v));
        return v;
    }
    QString tercero() { return conocido("tercero", catalogo_.terceros, "el tercero"); }
    QString centro() { return conocido("centro", catalogo_.centros, "el proyecto-centro"); }
    void falte(const QString& texto) { faltas_.anote(renglon_.numero, texto); }
    void termine() {
        QStringList claves = restan_.keys();
        claves.sort();
        for (const QString& clave : claves)
            falte(QStringLiteral("no se conoce el dato '%1'").arg(clave));
    }

private:
    const RenglonTexto& renglon_;
    QHash<QString, QString> restan_;
    const Catalogo& catalogo_;
    Faltas& faltas_;
};

void ponga_centro(const QString& pareja, QString& proyecto, QString& centro) {
    proyecto = pareja.section('-', 0, 0);
    centro = pareja.section('-', 1);
}

DocumentoSuite lea_encabezado(const RenglonTexto& r, Catalogo& catalogo, Faltas& faltas) {
    DocumentoSuite d;
    d.renglon = r.numero;
    Datos k(r, catalogo, faltas);
    d.tipo = k.entero("tipo");
    if (!catalogo.familias.contains(d.tipo))
        k.falte(QStringLiteral("el tipo de documento %1 no se contabiliza").arg(d.tipo));
    if (const QString p = k.texto("prefijo", 4); !p.isEmpty())
        d.prefijo = p;
    d.numero = k.texto("numero", 8);
    d.fecha = k.fecha("fecha", true);
    d.vence = k.fecha("vence");
    d.concepto = k.texto("concepto", 60);
    d.referencia = k.texto("referencia", 20);
    d.nit = k.tercero();
    ponga_centro(k.centro(), d.proyecto, d.centro);
    d.banco = k.entero("banco");
    d.total = k.monto("total");
    d.contado = k.texto("contado", 1);
    if (!d.contado.isEmpty() && d.contado != QLatin1String("S") && d.contado != QLatin1String("N"))
        k.falte(QStringLiteral("'contado' es S o N"));
    d.cufe = k.texto("cufe", 96);
    if (d.numero.isEmpty())
        k.falte(QStringLiteral("falta el número"));
    const QString clave =
        QStringLiteral("%1/%2/%3/%4").arg(d.tipo).arg(d.prefijo, d.numero).arg(d.banco);
    if (catalogo.numeros.contains(clave))
        k.falte(QStringLiteral("el documento %1/%2/%3 ya está registrado")
                    .arg(d.tipo)
                    .arg(d.prefijo, d.numero));
    catalogo.numeros.insert(clave);
    if (r.palabras.size() > 1)
        k.falte(QStringLiteral("sobra '%1'").arg(r.palabras[1]));
    k.termine();
    return d;
}

LineaDocumento lea_linea(const RenglonTexto& r, int tipo, const Catalogo& catalogo,
                         Faltas& faltas) {
    LineaDocumento l;
    l.renglon = r.numero;
    Datos k(r, catalogo, faltas);
    l.concepto = r.palabras[0].section(':', 0, 0);
    l.clase = r.palabras[0].section(':', 1);
    const QString familia = catalogo.familias.value(tipo);
    if (!familia.isEmpty() && !catalogo.conceptos.contains(familia + ' ' + l.concepto))
        k.falte(QStringLiteral("la familia %1 no tiene el concepto '%2'").arg(familia, l.concepto));
    if (l.clase.size() > 15)
        k.falte(QStringLiteral("la clase pasa de 15 caracteres"));
    if (r.palabras.size() != 2)
        k.falte(QStringLiteral("una línea es CONCEPTO[:CLASE] VALOR y sus datos"));
    else
        l.valor = k.lea_monto(r.palabras[1], QStringLiteral("valor"));
    l.valor_niif = k.monto_opcional("niif");
    l.base = k.monto("base");
    l.porcentaje = k.monto("porcentaje", 4);
    if (l.porcentaje < Moneda(0) || l.porcentaje > Moneda(100))
        k.falte(QStringLiteral("el porcentaje va de 0 a 100"));
    l.nit = k.tercero();
    ponga_centro(k.centro(), l.proyecto, l.centro);
    l.articulo = k.conocido("articulo", catalogo.articulos, "el artículo");
    l.detalle = k.texto("detalle", 60);
    const QString aplica = k.texto("aplica", 14);
    l.tipo_aplica = aplica.section('/', 0, 0).toInt();
    l.aplica = aplica.section('/', 1);
    if (!aplica.isEmpty() && (l.tipo_aplica <= 0 || l.aplica.isEmpty() || l.aplica.size() > 10))
        k.falte(QStringLiteral("'aplica' es tipo/número: %1").arg(aplica));
    k.termine();
    return l;
}

QString sin_ceros(const Valor& v) {
    return v.nulo() || v.moneda().es_cero() ? QString() : v.moneda().texto();
}

QString con_barras(const Valor& v) {
    return v.nulo() ? QString() : v.fecha().toString(QStringLiteral("yyyy/MM/dd"));
}

QString unidos(const Valor& uno, const Valor& otro, QChar separador) {
    return otro.texto().isEmpty() ? QString() : uno.texto() + separador + otro.texto();
}

QString lineas_escritas(Conexion& c, const Valor& tipo, const Valor& id) {
    QString salida;
    const auto f =
        c.abra("select doli_concepto, doli_clase, doli_valor, doli_valorniif, doli_base, doli_porc,"
               " terc_nit, proy_cod, cent_cod, arti_cod, doli_detalle, doli_tipoapl, doli_aplica"
               " from documento_linea where tido_cod = ? and docu_id = ? order by doli_item",
               {tipo, id});
    while (f->siguiente()) {
        salida += f->valor(0).texto();
        if (!f->valor(1).texto().isEmpty())
            salida += ':' + f->valor(1).texto();
        salida += ' ' + f->valor(2).moneda().texto();
        if (!f->valor(3).nulo())
            salida += dato_escrito("niif", f->valor(3).moneda().texto());
        salida += dato_escrito("base", sin_ceros(f->valor(4))) +
                  dato_escrito("porcentaje", sin_ceros(f->valor(5))) +
                  dato_escrito("tercero", f->valor(6).texto()) +
                  dato_escrito("centro", unidos(f->valor(7), f->valor(8), '-')) +
                  dato_escrito("articulo", f->valor(9).texto()) +
                  dato_escrito("aplica", unidos(f->valor(11), f->valor(12), '/')) +
                  dato_escrito("detalle", f->valor(10).texto()) + '\n';
    }
    return salida;
}

} // namespace

EscritorDocumentos::EscritorDocumentos(Transaccion& t)
    : transaccion_(t),
      anulado_(t.conexion(), t,
               QStringLiteral("delete from documento where tido_cod = ? and pref_pre = ? and"
                              " docu_numero = ? and cuba_cod = ? and docu_anulado = 'S'")),
      encabezado_(
          t.conexion(), t,
          QStringLiteral("insert into documento (tido_cod, pref_pre, docu_numero, docu_fecha,"
                         " docu_vence, docu_concepto, docu_refer, terc_nit, proy_cod, cent_cod,"
                         " cuba_cod, docu_total, docu_contado, docu_cufe)"
                         " values (?,?,?,?,?,?,?,?,?,?,?,?,?,?) returning docu_id")),
      linea_(
          t.conexion(), t,
          QStringLiteral("insert into documento_linea (tido_cod, docu_id, doli_item,"
                         " doli_concepto, doli_clase, doli_valor, doli_valorniif, doli_base,"
                         " doli_porc, terc_nit, proy_cod, cent_cod, arti_cod, doli_detalle,"
                         " doli_tipoapl, doli_aplica) values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)")) {}

int EscritorDocumentos::escriba(const DocumentoSuite& d) {
    anulado_.ejecute(transaccion_, {d.tipo, d.prefijo, d.numero, d.banco});
    const int id =
        int(encabezado_
                .ejecute_con_salida(
                    transaccion_,
                    {d.tipo, d.prefijo, d.numero, d.fecha, nula_si_invalida(d.vence),
                     nulo_si_vacio(d.concepto), nulo_si_vacio(d.referencia), nulo_si_vacio(d.nit),
                     nulo_si_vacio(d.proyecto), nulo_si_vacio(d.centro), d.banco,
                     nula_si_cero(d.total), nulo_si_vacio(d.contado), nulo_si_vacio(d.cufe)})
                .front()
                .entero());
    int item = 0;
    for (const LineaDocumento& l : d.lineas)
        linea_.ejecute(transaccion_,
                       {d.tipo, id, ++item, l.concepto, l.clase, l.valor,
                        l.valor_niif ? Valor(*l.valor_niif) : Valor(), nula_si_cero(l.base),
                        nula_si_cero(l.porcentaje), nulo_si_vacio(l.nit), nulo_si_vacio(l.proyecto),
                        nulo_si_vacio(l.centro), nulo_si_vacio(l.articulo),
                        nulo_si_vacio(l.detalle), l.tipo_aplica ? Valor(l.tipo_aplica) : Valor(),
                        nulo_si_vacio(l.aplica)});
    return id;
}

QVector<DocumentoSuite> lea_documentos(Conexion& conexion, const QString& archivo) {
    Faltas faltas(archivo);
    Catalogo catalogo(conexion);
    QVector<DocumentoSuite> documentos;
    const auto cierre = [&] {
        if (!documentos.isEmpty() && documentos.back().lineas.isEmpty())
            faltas.anote(documentos.back().renglon, QStringLiteral("el documento no tiene líneas"));
    };
    for (const RenglonTexto& r : lea_renglones(archivo, faltas)) {
        if (r.palabras.value(0) == QLatin1String("DOCUMENTO")) {
            cierre();
            documentos.push_back(lea_encabezado(r, catalogo, faltas));
        } else if (r.palabras.isEmpty() || documentos.isEmpty()) {
            faltas.anote(r.numero, QStringLiteral("se esperaba DOCUMENTO"));
        } else {
            DocumentoSuite& d = documentos.back();
            d.lineas.push_back(lea_linea(r, d.tipo, catalogo, faltas));
        }
    }
    cierre();
    faltas.lance_si_hay();
    return documentos;
}

int cargue_documentos(Conexion& conexion, const QString& archivo) {
    const QVector<DocumentoSuite> documentos = lea_documentos(conexion, archivo);
    Transaccion t(conexion, Transaccion::Modo::Escritura);
    EscritorDocumentos escritor(t);
    for (const DocumentoSuite& d : documentos)
        try {
            escritor.escriba(d);
        } catch (const ErrorDatos& e) {
            throw ErrorDatos(QStringLiteral("%1:%2: %3\nNo se cargó nada.")
                                 .arg(archivo, QString::number(d.renglon), e.para_usuario()));
        }
    t.confirme();
    return int(documentos.size());
}

QString liste_documentos(Conexion& conexion, const FiltroDocumentos& filtro) {
    QString salida;
    const auto f = conexion.abra(
        QStringLiteral(
            "select tido_cod, docu_id, pref_pre, docu_numero, docu_fecha, docu_vence,"
            " docu_concepto, docu_refer, terc_nit, proy_cod, cent_cod, cuba_cod, docu_total,"
            " docu_contado, docu_cufe from documento d where docu_anulado = 'N'"
            " and docu_fecha between ? and ?%1%2 order by docu_fecha, tido_cod, pref_pre,"
            " docu_numero, docu_id")
            .arg(filtro.tipo
                     ? QStringLiteral(" and tido_cod = %1").arg(QString::number(filtro.tipo))
                     : QString(),
                 filtro.pendientes
                     ? QStringLiteral(" and not exists (select 1 from comprobante_encabezado e"
                                      " where e.enco_idref = d.docu_id and e.enco_tiporef ="
                                      " d.tido_cod)")
                     : QString()),
        {filtro.desde.isValid() ? filtro.desde : QDate(1900, 1, 1),
         filtro.hasta.isValid() ? filtro.hasta : QDate(9999, 12, 31)});
    while (f->siguiente())
        salida += QStringLiteral("DOCUMENTO") + dato_escrito("tipo", f->valor(0).texto()) +
                  dato_escrito("prefijo", f->valor(2).texto()) +
                  dato_escrito("numero", f->valor(3).texto()) +
                  dato_escrito("fecha", con_barras(f->valor(4))) +
                  dato_escrito("vence", con_barras(f->valor(5))) +
                  dato_escrito("tercero", f->valor(8).texto()) +
                  dato_escrito("centro", unidos(f->valor(9), f->valor(10), '-')) +
                  dato_escrito("banco", f->valor(11).entero() ? f->valor(11).texto() : QString()) +
                  dato_escrito("total", sin_ceros(f->valor(12))) +
                  dato_escrito("contado", f->valor(13).texto()) +
                  dato_escrito("referencia", f->valor(7).texto()) +
                  dato_escrito("cufe", f->valor(14).texto()) +
                  dato_escrito("concepto", f->valor(6).texto()) + '\n' +
                  lineas_escritas(conexion, f->valor(0), f->valor(1)) + '\n';
    return salida;
}

void anule_documento(Conexion& conexion, const QString& cual, const QString& usuario) {
    const QStringList partes = cual.split('/');
    if (partes.size() != 3)
        throw ErrorDatos(
            QStringLiteral("El documento se escribe tipo/prefijo/número: %1").arg(cual));
    Transaccion t(conexion, Transaccion::Modo::Escritura);
    {
        Cursor contexto(conexion.prepare("select rdb$set_context('USER_TRANSACTION', 'USUARIO',"
                                         " cast(? as varchar(31))) from rdb$database",
                                         t),
                        t, {usuario});
        contexto.siguiente();
    }
    const qint64 anulados =
        conexion
            .prepare("update documento set docu_anulado = 'S' where tido_cod = ? and pref_pre = ?"
                     " and docu_numero = ? and docu_anulado = 'N'",
                     t)
            ->ejecute(t, {partes[0].toInt(), partes[1], partes[2]});
    if (anulados == 0)
        throw ErrorDatos(QStringLiteral("No hay un documento vigente %1.").arg(cual));
    if (anulados > 1)
        throw ErrorDatos(QStringLiteral("Hay %1 documentos %2, de cuentas bancarias distintas.")
                             .arg(anulados)
                             .arg(cual));
    t.confirme();
}
