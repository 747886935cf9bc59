#pragma once
// Maestra y dos detalles, como un comprobante con sus dos libros.

struct DocumentoDePrueba {
    DocumentoDePrueba(Conexion& c, const char* sql, unsigned opciones = 0)
        : q(&dueno, "TDocumentos", c, sql),
          ql(&dueno, "TLineas", c, "select * from linea where id = :ID order by item"),
          qn(&dueno, "TLineasn", c, "select * from linea_n where id = :ID order by item"),
          p(&dueno, "PDocumentos", &q, poCascadeDeletes | poCascadeUpdates | opciones) {
        ql.enlace_maestra(&q, {"ID"});
        qn.enlace_maestra(&q, {"ID"});
        doc.proveedor = &p;
        doc.entero("ID").requerido();
        doc.texto("NOMBRE", 10).requerido().etiqueta("Nombre");
        doc.memo("NOTA");
        lineas.anide_en(&doc, &ql);
        otras.anide_en(&doc, &qn);
        for (ConjuntoDatos* l : {&lineas, &otras}) {
            l->entero("ID").requerido();
            l->entero("ITEM").requerido();
            l->decimal("VALOR").formato("#,###.00");
            l->agregado("SUMA", "Sum(VALOR)");
        }
    }
    void linea(ConjuntoDatos& l, int item, int valor) {
        l.Append();
        l.FieldByName("ITEM") = item;
        l.FieldByName("VALOR") = Moneda(valor);
        l.Post();
    }

    QObject dueno;
    Sentencia q, ql, qn;
    Proveedor p;
    ConjuntoDatos doc{&dueno, "CDocumento"}, lineas{&dueno, "CLineas"}, otras{&dueno, "COtras"};
    QStringList fallas;
};
