#include "datos/recordset/sentencia.h"

Sentencia::Sentencia(QObject* dueno, const QString& nombre, Conexion& conexion, const QString& sql)
    : QObject(dueno), SQL(sql), conexion_(conexion) {
    setObjectName(nombre);
}

Sentencia::~Sentencia() {
    if (maestra_)
        maestra_->detalles_.removeAll(this);
    for (Sentencia* d : detalles_)
        d->maestra_ = nullptr;
}

void Sentencia::enlace_maestra(Sentencia* maestra, const QStringList& campos) {
    maestra_ = maestra;
    campos_maestra_ = campos;
    maestra->detalles_.push_back(this);
}

QString Sentencia::posicional(const QString& sql, QStringList& nombres) {
    QString salida;
    salida.reserve(sql.size());
    bool en_texto = false;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar c = sql[i];
        if (c == '\'')
            en_texto = !en_texto;
        if (en_texto || c != ':') {
            salida += c;
            continue;
        }
        qsizetype fin = i + 1;
        while (fin < sql.size() && (sql[fin].isLetterOrNumber() || sql[fin] == '_'))
            ++fin;
        if (fin == i + 1) {
            salida += c;
            continue;
        }
        nombres << sql.mid(i + 1, fin - i - 1).toUpper();
        salida += '?';
        i = fin - 1;
    }
    return salida;
}

namespace {

QVector<Valor> reuna(const QStringList& nombres, const QMap<QString, Valor>& parametros) {
    QVector<Valor> valores;
    for (const QString& n : nombres)
        valores << parametros.value(n);
    return valores;
}

struct ParametrosProcedimiento {
    QStringList entradas, salidas;
};

/// Los nombres los sabe el servidor; se le preguntan una vez por base y procedimiento.
ParametrosProcedimiento parametros_de(Conexion& conexion, const QString& procedimiento) {
    thread_local QHash<QString, ParametrosProcedimiento> conocidos;
    const QString llave = conexion.parametros().base + '|' + procedimiento;
    if (const auto ya = conocidos.constFind(llave); ya != conocidos.constEnd())
        return *ya;
    ParametrosProcedimiento p;
    for (const auto c = conexion.abra(
             QStringLiteral("select rdb$parameter_name, rdb$parameter_type from "
                            "rdb$procedure_parameters where rdb$procedure_name = ? order by "
                            "rdb$parameter_type, rdb$parameter_number"),
             {procedimiento});
         c->siguiente();)
        (c->valor(1).entero() == 0 ? p.entradas : p.salidas) << c->valor(0).texto();
    if (!p.entradas.isEmpty() || !p.salidas.isEmpty())
        conocidos.insert(llave, p);
    return p;
}

} // namespace

void Sentencia::Open() {
    Close();
    QStringList nombres;
    const QString texto = posicional(SQL, nombres);
    cursor_ = conexion_.abra(texto, reuna(nombres, parametros_));
    abierta_ = true;
    vacia_ = fin_ = !cursor_->siguiente();
}

void Sentencia::Close() {
    cursor_.reset();
    abierta_ = false;
    vacia_ = fin_ = true;
}

void Sentencia::Next() {
    if (!fin_)
        fin_ = !cursor_->siguiente();
}

Valor Sentencia::Fields(int indice) const {
    if (!cursor_ || fin_ || indice < 0 || indice >= cursor_->columnas().size())
        return {};
    return cursor_->valor(indice);
}

Valor Sentencia::FieldByName(const QString& nombre) const {
    if (cursor_)
        for (int i = 0; i < cursor_->columnas().size(); ++i)
            if (cursor_->columnas()[i].nombre.compare(nombre, Qt::CaseInsensitive) == 0)
                return Fields(i);
    return {};
}

qint64 Sentencia::ExecSQL() {
    Close();
    QStringList nombres;
    const QString texto = posicional(SQL, nombres);
    return conexion_.ejecute(texto, reuna(nombres, parametros_));
}

void Sentencia::ExecProc() {
    Close();
    // Las entradas se toman en el orden del procedimiento.
    const auto [entradas, salidas] = parametros_de(conexion_, procedimiento.toUpper());
    QStringList incognitas(entradas.size(), QStringLiteral("?"));
    QString texto = QStringLiteral("execute procedure ") + procedimiento;
    if (!entradas.isEmpty())
        texto += '(' + incognitas.join(',') + ')';
    const QVector<Valor> resultado =
        conexion_.ejecute_con_salida(texto, reuna(entradas, parametros_));
    for (int i = 0; i < salidas.size() && i < resultado.size(); ++i)
        parametros_[salidas[i].toUpper()] = resultado[i];
}
