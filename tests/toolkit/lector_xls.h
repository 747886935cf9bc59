#pragma once
// Lector de libros BIFF8 de las pruebas: abre el contenedor con libgsf y sigue los registros por su
// cuenta, sin nada del escritor.
#undef signals
#include <gsf/gsf.h>

#include <cstring>

struct CeldaLeida {
    QVariant valor; // QString o double; nulo en una celda vacía con estilo.
    QString formato;
    int lado = 0;
    int sangria = 0;
    bool negrita = false;
};

struct HojaLeida {
    QString nombre;
    QMap<QPair<int, int>, CeldaLeida> celdas;
    int filas_declaradas = 0;
    int filas_fijas = 0;
    QVector<int> anchos; // En caracteres.
    bool cerrada = false;

    QVariant valor(int fila, int columna) const { return celdas.value({fila, columna}).valor; }
};

class LectorXls {
public:
    QVector<HojaLeida> hojas;
    QString falla; // Vacía si el libro está bien formado.
    int continuaciones = 0;

    explicit LectorXls(const QString& ruta) {
        gsf_init();
        if (!lea_flujo(ruta))
            return;
        lea_globales();
        for (int i = 0; i < hojas.size() && falla.isEmpty(); ++i)
            lea_hoja(hojas[i], comienzos_[i]);
    }

private:
    struct Registro {
        int codigo = 0;
        QByteArray datos;
    };
    struct Estilo {
        int letra, formato, lado, sangria;
    };

    QByteArray flujo_;
    qsizetype sitio_ = 0;
    QVector<int> comienzos_;
    QVector<QString> cadenas_;
    QVector<bool> negritas_;
    QVector<Estilo> estilos_;
    QMap<int, QString> formatos_{
        {0, "General"}, {1, "0"}, {3, "#,##0"}, {4, "#,##0.00"}, {49, "@"}};

    bool lea_flujo(const QString& ruta) {
        GsfInput* archivo = gsf_input_stdio_new(ruta.toUtf8().constData(), nullptr);
        GsfInfile* contenedor = archivo ? gsf_infile_msole_new(archivo, nullptr) : nullptr;
        GsfInput* flujo = contenedor ? gsf_infile_child_by_name(contenedor, "Workbook") : nullptr;
        if (flujo) {
            flujo_.resize(gsf_input_size(flujo));
            gsf_input_read(flujo, flujo_.size(), reinterpret_cast<guint8*>(flujo_.data()));
            g_object_unref(flujo);
        } else {
            falla = "no hay un flujo Workbook en un contenedor OLE2";
        }
        if (contenedor)
            g_object_unref(contenedor);
        if (archivo)
            g_object_unref(archivo);
        return flujo_.size() > 0;
    }

    static quint32 u16(const QByteArray& b, qsizetype i) {
        return i + 2 <= b.size() ? qFromLittleEndian<quint16>(b.constData() + i) : 0xFFFF;
    }
    static quint32 u32(const QByteArray& b, qsizetype i) {
        return i + 4 <= b.size() ? qFromLittleEndian<quint32>(b.constData() + i) : 0xFFFFFFFF;
    }

    bool siguiente(Registro& registro) {
        if (sitio_ + 4 > flujo_.size())
            return false;
        registro.codigo = u16(flujo_, sitio_);
        const int largo = u16(flujo_, sitio_ + 2);
        if (largo > 8224 || sitio_ + 4 + largo > flujo_.size()) {
            falla = QString("registro %1 de largo %2").arg(registro.codigo, 0, 16).arg(largo);
            return false;
        }
        registro.datos = flujo_.mid(sitio_ + 4, largo);
        sitio_ += 4 + largo;
        return true;
    }

    static QString cadena(const QByteArray& b, qsizetype desde, int largo) {
        const bool ancha = b[desde] & 1;
        return ancha ? QString::fromUtf16(
                           reinterpret_cast<const char16_t*>(b.constData() + desde + 1), largo)
                     : QString::fromLatin1(b.constData() + desde + 1, largo);
    }

    bool empiece(int tipo, qsizetype desde) {
        sitio_ = desde;
        Registro r;
        if (siguiente(r) && r.codigo == 0x809 && u16(r.datos, 0) == 0x600 &&
            int(u16(r.datos, 2)) == tipo)
            return true;
        falla = QString("no hay comienzo de tipo %1 en %2").arg(tipo).arg(desde);
        return false;
    }

    void lea_globales() {
        if (!empiece(5, 0))
            return;
        Registro r;
        while (siguiente(r) && r.codigo != 0x0A) {
            if (r.codigo == 0x31) {
                negritas_ += u16(r.datos, 6) >= 700;
            } else if (r.codigo == 0x41E) {
                formatos_[u16(r.datos, 0)] = cadena(r.datos, 4, u16(r.datos, 2));
            } else if (r.codigo == 0xE0) {
                estilos_ += Estilo{int(u16(r.datos, 0)), int(u16(r.datos, 2)), r.datos[6] & 7,
                                   r.datos[8] & 15};
            } else if (r.codigo == 0x85) {
                comienzos_ += u32(r.datos, 0);
                hojas += HojaLeida();
                hojas.last().nombre = cadena(r.datos, 7, quint8(r.datos[6]));
            } else if (r.codigo == 0xFC) {
                lea_cadenas(r);
            }
        }
    }

    void lea_cadenas(Registro r) {
        const quint32 total = u32(r.datos, 4);
        qsizetype i = 8;
        const auto continue_ = [&] {
            ++continuaciones;
            i = 0;
            return siguiente(r) && r.codigo == 0x3C;
        };
        for (quint32 n = 0; n < total; ++n) {
            if (i == r.datos.size() && !continue_())
                return anote("faltan cadenas");
            if (i + 3 > r.datos.size())
                return anote("cabecera de cadena partida");
            qsizetype faltan = u16(r.datos, i);
            bool ancha = r.datos[i + 2] & 1;
            i += 3;
            QString texto;
            while (faltan > 0) {
                if (i == r.datos.size()) {
                    if (!continue_())
                        return anote("cadena sin continuación");
                    ancha = r.datos[i++] & 1;
                }
                const qsizetype caben = (r.datos.size() - i) / (ancha ? 2 : 1);
                const qsizetype tramo = qMin(faltan, caben);
                if (tramo == 0)
                    return anote("carácter partido");
                texto += cadena(
                    QByteArray(1, char(ancha)) + r.datos.mid(i, tramo * (ancha ? 2 : 1)), 0, tramo);
                i += tramo * (ancha ? 2 : 1);
                faltan -= tramo;
            }
            cadenas_ += texto;
        }
        if (i != r.datos.size())
            anote("sobran bytes en la tabla de cadenas");
    }

    void anote(const char* texto) { falla = texto; }

    void lea_hoja(HojaLeida& hoja, int desde) {
        if (!empiece(0x10, desde))
            return;
        Registro r;
        while (siguiente(r) && r.codigo != 0x0A) {
            if (r.codigo == 0x200)
                hoja.filas_declaradas = u32(r.datos, 4);
            if (r.codigo == 0x41)
                hoja.filas_fijas = u16(r.datos, 2);
            if (r.codigo == 0x7D)
                hoja.anchos += u16(r.datos, 4) / 256;
            if (r.codigo != 0x203 && r.codigo != 0xFD && r.codigo != 0x201)
                continue;
            const int estilo = u16(r.datos, 4);
            if (estilo >= estilos_.size())
                return anote("celda con un estilo que no existe");
            CeldaLeida celda;
            celda.formato = formatos_.value(estilos_[estilo].formato, "?");
            celda.lado = estilos_[estilo].lado;
            celda.sangria = estilos_[estilo].sangria;
            celda.negrita = negritas_.value(estilos_[estilo].letra);
            if (r.codigo == 0x203) {
                double numero;
                std::memcpy(&numero, r.datos.constData() + 6, 8);
                celda.valor = numero;
            } else if (r.codigo == 0xFD) {
                const quint32 indice = u32(r.datos, 6);
                if (indice >= quint32(cadenas_.size()))
                    return anote("celda con una cadena que no existe");
                celda.valor = cadenas_[indice];
            }
            hoja.celdas[{int(u16(r.datos, 0)), int(u16(r.datos, 2))}] = celda;
        }
        hoja.cerrada = r.codigo == 0x0A;
    }
};
