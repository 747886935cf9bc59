#pragma once
// Lo que un programa dijo que iba a hacer y lo que dio por hecho, contra lo que quedó en la base.
//
// `grabador` escribe un renglón antes de cada operación y otro cuando la pantalla la dio por hecha:
//     > graba 1000.07            < graba 000012 1000.07
//     > edita 000012 1000.08     < edita 000012 1000.08
//     > pagina 1000.09           < pagina 000013 1000.09
//     > borra 000012             < borra 000012
// Si muere, la última anunciada pudo quedar hecha o no, pero entera.

class Diario {
public:
    /// Agrega lo dicho por un programa que ya terminó.
    void lea(const QString& salida);
    /// Diferencias entre la base y lo dicho, como texto; vacío si ninguna. Lo que la base diga de
    /// lo anunciado y no confirmado queda como verdad para lo que siga.
    QString compare(Conexion& c);

    int hechas() const { return hechas_; }
    const QMap<QString, QString>& valores() const { return valores_; }

private:
    struct Anuncio {
        QString que, numero, valor;
    };
    bool admite(const QString& numero, const std::optional<QString>& en_la_base) const;

    QMap<QString, QString> valores_; ///< número y valor de cada comprobante confirmado
    QMap<QString, QSet<QString>> anteriores_;
    QList<Anuncio> dudosos_;
    QStringList quejas_;
    int hechas_ = 0;
};
