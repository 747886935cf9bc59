// Numeración y registro de los documentos de la suite.
#include "libro/numeracion.h"
#include "sesion/registro_documentos.h"
#include "sesion/tfdm.h"

QString Tfdm::complete_numero_n(const QString& numero, int n) {
    return ::complete_numero(numero, n);
}

void Tfdm::registre_prefijo(int tipo) {
    const QString t = QString::number(tipo);
    CBorrar.Open("select pref_activo from prefijos where pref_pre = '0000' and tido_cod = " + t);
    if (!CBorrar.IsEmpty())
        CBorrar.Execute(
            "update prefijos set pref_activo = 'S' where pref_pre = '0000' and tido_cod = " + t);
    else
        CBorrar.Execute("insert into prefijos (tido_cod, pref_pre, pref_auto, pref_actual, "
                        "pref_ivainc, pref_activo) values (" +
                        t + ", '0000', 'N', '000001', 'N', 'S')");
}

std::optional<QString> Tfdm::existe_numero(int tipo, const QString& prefijo,
                                           const QString& numero) {
    if (numero.isEmpty())
        return QString();
    QBorrar.Open(sql_existe_numero(tipo, prefijo, complete_numero(numero)));
    std::optional<QString> id;
    if (!QBorrar.IsEmpty())
        id = QBorrar.Fields(0).texto();
    QBorrar.Close();
    return id;
}

NumeroValidado Tfdm::valide_numero(int tipo, const QString& prefijo, const QString& numero_sugerido,
                                   Campo& campo) {
    if (campo.vacio())
        return {};
    QString numero = campo.texto();
    const std::optional<QString> id = existe_numero(tipo, prefijo, numero);
    if (!id)
        return {};
    if (numero != numero_sugerido) {
        if (pregunte("Documento " + numero + " previamente registrado. Consultar?"))
            return {.encontrado = *id};
        return {.vale = false};
    }
    do
        numero = complete_numero_n(QString::number(entero(numero) + 1), tipo == 31 ? 8 : 6);
    while (existe_numero(tipo, prefijo, numero));
    campo = numero;
    return {};
}

void Tfdm::numero_documento(int tipo, qint64 id, Campo& campo_prefijo, Campo& campo_numero) {
    if (tipo <= 10) {
        campo_prefijo = "";
        campo_numero = "";
        return;
    }
    const QString sql = sql_numero_documento(tipo, id);
    if (sql.isEmpty())
        throw ErrorDatos(
            QStringLiteral("El programa no muestra los documentos de tipo %1.").arg(tipo));
    QNumerodoc.Open(sql);
    if (!QNumerodoc.IsEmpty()) {
        // El "número" de algunos es un NIT, que puede no caber.
        campo_prefijo = QNumerodoc.Fields(0).texto().left(campo_prefijo.Size);
        campo_numero = QNumerodoc.Fields(1).texto().left(campo_numero.Size);
    }
    QNumerodoc.Close();
}

void Tfdm::num_documento(int tipo, qint64 id, QString& prefijo, QString& numero) {
    if (tipo <= 10) {
        prefijo.clear();
        numero.clear();
        return;
    }
    QNumerodoc.Open(sql_num_documento(tipo, id));
    if (!QNumerodoc.IsEmpty()) {
        prefijo = QNumerodoc.Fields(0).texto();
        numero = QNumerodoc.Fields(1).texto();
    }
    QNumerodoc.Close();
}

QString Tfdm::nombre_tipo(int tipo) {
    QNomtipo.Open("select tido_nomcorto from tipo_documento where tido_cod = " +
                  QString::number(tipo));
    const QString nombre = QNomtipo.Fields(0).texto();
    QNomtipo.Close();
    return nombre;
}
