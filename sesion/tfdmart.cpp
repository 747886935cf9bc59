#include "sesion/tfdmart.h"

#include "sesion/tfdm.h"

namespace {
TfdmArt* unico_art_ = nullptr;
}

TfdmArt& fdmArt() {
    Q_ASSERT(unico_art_);
    return *unico_art_;
}

TfdmArt::TfdmArt()
    : TArticulo(this, "TArticulo", fdm().Quorvex, "SELECT * FROM ARTICULO WHERE ARTI_COD = :COD"),
      QArticulos(this, "QArticulos", fdm().Quorvex), QConsulta(this, "QConsulta", fdm().Quorvex) {
    setObjectName("TfdmArt");
    unico_art_ = this;
}

TfdmArt::~TfdmArt() {
    unico_art_ = nullptr;
}

namespace {

Valor primer_dato(Sentencia& q, const QString& sql) {
    q.Open(sql);
    const Valor v = q.Fields(0);
    q.Close();
    return v;
}

} // namespace

bool TfdmArt::valide_articulo(const QString& codigo) {
    if (primer_dato(QConsulta, "select * from valide_articulo(" + QuotedStr(codigo) + ')')
            .texto() == "S")
        return true;
    muestre_mensaje("Código no encontrado");
    return false;
}

QString TfdmArt::desc_articulo(const QString& codigo) {
    return primer_dato(QConsulta,
                       "select arti_des from articulo where arti_cod = " + QuotedStr(codigo))
        .texto();
}

Moneda TfdmArt::ultimo_costo(const QString& codigo, const QString& bodega) {
    return primer_dato(QConsulta, "SELECT * FROM ULTIMO_COSTO(" + QuotedStr(codigo) + ',' +
                                      QuotedStr(bodega) + ')')
        .moneda();
}

Moneda TfdmArt::ultimo_costo_niif(const QString& codigo, const QString& bodega) {
    return primer_dato(QConsulta, "SELECT * FROM ULTIMO_COSTO_NIIF(" + QuotedStr(codigo) + ',' +
                                      QuotedStr(bodega) + ')')
        .moneda();
}

Moneda TfdmArt::costo_promedio(const QString& codigo, const QString& bodega) {
    return primer_dato(QConsulta, "SELECT * FROM COSTO_PROMEDIO_UNIDAD(" + QuotedStr(codigo) + ',' +
                                      QuotedStr(bodega) + ')')
        .moneda();
}

Moneda TfdmArt::costo_promedio_niif(const QString& codigo, const QString& bodega) {
    return primer_dato(QConsulta, "SELECT * FROM COSTO_PROMEDIO_UNIDAD_NIIF(" + QuotedStr(codigo) +
                                      ',' + QuotedStr(bodega) + ')')
        .moneda();
}

bool TfdmArt::tiene_movimiento(const QString& codigo) {
    return primer_dato(QConsulta, "select count(*) from movimiento_articulo where arti_cod = " +
                                      QuotedStr(codigo))
               .entero() > 0;
}
