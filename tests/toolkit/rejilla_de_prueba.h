#pragma once
// Comprobante en memoria con su rejilla, para las pruebas de la rejilla.
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/rejilla.h"

#include <ctime>

/// Tiempo de procesador: no depende de cuánto más haga la máquina.
class TiempoProceso {
public:
    double milisegundos() const { return 1000.0 * double(std::clock() - desde_) / CLOCKS_PER_SEC; }

private:
    std::clock_t desde_ = std::clock();
};

struct RejillaDePrueba {
    enum Columna { Cuenta, Concepto, Categoria, Debito, Credito, Descontable };

    std::unique_ptr<ConjuntoDatos> detalle = std::make_unique<ConjuntoDatos>(nullptr, "CDetalle");
    QStringList fallas;
    QStringList sucesos; ///< eventos en el orden en que ocurrieron
    QWidget ventana;
    Rejilla* rejilla = new Rejilla(&ventana);
    QLineEdit* otro = new QLineEdit(&ventana);

    explicit RejillaDePrueba(int filas = 3) {
        instale_manejador_fallas([this](const QString& texto) { fallas << texto; });
        ConjuntoDatos& d = *detalle;
        d.entero("CODE_ITEM").banderas(pfInKey);
        d.texto("CUEN_COD", 12);
        d.texto("CODE_CONCEPTO", 30);
        d.texto("CONC_COD", 6);
        d.decimal("CODE_DEBITO").formato("#,###.00");
        d.decimal("CODE_CREDITO").formato("#,###.00");
        d.bandera("CODE_DESCONTABLE");
        int item = 0;
        d.AfterInsert = [&d, item]() mutable {
            d.FieldByName("CODE_ITEM").asigne(++item);
            d.FieldByName("CODE_DESCONTABLE").asigne("S");
        };
        d.BeforePost = [&d] {
            // Un renglón sin cuenta se cancela solo; uno sin valor se rehúsa.
            if (d.FieldByName("CUEN_COD").vacio()) {
                d.Cancel();
                throw EdicionAbortada();
            }
            if (d.FieldByName("CODE_DEBITO").moneda().es_cero() &&
                d.FieldByName("CODE_CREDITO").moneda().es_cero())
                throw ErrorDatos("Debe indicar un valor para el movimiento.");
        };
        d.CreateDataSet();
        for (int i = 1; i <= filas; ++i) {
            d.Append();
            d.FieldByName("CUEN_COD").asigne(QString::number(110500 + i));
            d.FieldByName("CODE_CONCEPTO").asigne(QStringLiteral("Renglón %1").arg(i));
            d.FieldByName("CODE_DEBITO").asigne(Moneda(100 * i));
            d.Post();
        }
        if (filas)
            d.First();

        auto* cuerpo = new QVBoxLayout(&ventana);
        cuerpo->addWidget(rejilla);
        cuerpo->addWidget(otro);
        rejilla->columnas({{"CUEN_COD", "Código", 12},
                           {"CODE_CONCEPTO", "Concepto", 25},
                           {"CONC_COD", "Categoría", 8},
                           {"CODE_DEBITO", "Débito", 14, Suma},
                           {"CODE_CREDITO", "Crédito", 14, Suma},
                           {"CODE_DESCONTABLE", "Desc.", 5, Casilla}});
        rejilla->lista(Categoria, {"Oficina", "Viajes", "Varios"}, {"OFI", "VIA", "VAR"});
        rejilla->enter_como_tab = true;
        rejilla->pie(true);
        rejilla->ate(detalle.get());
        ventana.resize(760, 300);
        ventana.show();
        ventana.activateWindow();
        if (!QTest::qWaitForWindowActive(&ventana))
            qFatal("la ventana no se activó");
        rejilla->setFocus();
    }
    ~RejillaDePrueba() { retire_manejador_fallas(); }

    void anote_eventos() {
        rejilla->ColEnter = [this](int c) { sucesos << QStringLiteral("entra %1").arg(c); };
        rejilla->ColExit = [this](int c) {
            sucesos << QStringLiteral("sale %1 fila %2").arg(c).arg(detalle->RecNo());
        };
        rejilla->OnEnter = [this] { sucesos << QStringLiteral("foco"); };
        rejilla->OnExit = [this] { sucesos << QStringLiteral("sin foco"); };
    }
    /// Teclas a quien tiene el foco, como las del usuario.
    void tecla(int clave, Qt::KeyboardModifiers m = Qt::NoModifier) {
        // Sin gestor de ventanas, la que queda tras un diálogo no se activa sola.
        if (!QApplication::focusWidget()) {
            ventana.activateWindow();
            (void)QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; });
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(clave), m);
    }
    template <class... Claves> void digite(const QString& texto, Claves... claves) {
        for (const QChar c : texto)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                                QString(c), Qt::NoModifier);
        (tecla(claves), ...);
    }
    void clic(int fila, int columna, Qt::KeyboardModifiers m = Qt::NoModifier) {
        QTest::mouseClick(rejilla->viewport(), Qt::LeftButton, m, centro(fila, columna));
    }
    QPoint centro(int fila, int columna) const {
        return rejilla->visualRect(rejilla->model()->index(fila, columna)).center();
    }
    QPair<int, int> celda() const {
        return {rejilla->currentIndex().row(), rejilla->currentIndex().column()};
    }
    QString en(int fila, const char* campo) const {
        return detalle->valor_en(fila, detalle->FieldByName(campo)).texto();
    }
    QLineEdit* editor() const { return rejilla->findChild<QLineEdit*>("editor_celda"); }
};
