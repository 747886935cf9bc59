// La revisión de una propuesta: se guarda sola si nadie debe confirmarla, y si no, se corrige con
// las reglas de los comprobantes en el libro que dice cada renglón.
#include "posting/modulos_de_prueba.h"
#include "posting/registro.h"
#include "vouchers/registro.h"
#include "vouchers/tfcontabiliza.h"

#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

namespace {
const QDate kFecha(2017, 3, 15);
}

class PruebaContabiliza : public QObject {
    Q_OBJECT
private slots:
    void init() {
        s_.emplace();
        m_.emplace();
        registre_pantallas_comprobantes();
        agregue_cuentas(base(), "110515; 413506 C; 236540 TR");
        configure(kPorInterfaz, "INTERFAZ");
        configure("AÑO BALANCE DE APERTURA NIIF", "2016");
        configure("PERMITIR CERRAR LA VENTANA DE CONTABILIZACION SIN GRABAR EL COMPROBANTE", "NO");
        registre(base(), 31, interfaz_de_prueba(kReglasVenta));
        id_ = registre(base(), venta_de_prueba());
    }
    void cleanup() {
        m_.reset();
        s_.reset();
    }
    void a_la_vista();

private:
    void configure(const char* llave, const QString& valor) {
        ::configure(base(), llave, valor);
        s_->dm.cargue_configuracion();
    }
    Conexion& base() { return s_->base.base(); }
    int proponga() { return m_->fact.contabilice_factura(id_, 1, kFecha).cntb_id; }
    /// Abre la revisión y corre `atienda` con ella; devuelve si quedó guardada.
    bool revise(std::function<void(Tfcontabiliza&)> atienda, Interlocutor& i) {
        i.espere_modal("Tfcontabiliza", [atienda](QWidget* w) {
            atienda(*w->findChild<Tfcontabiliza*>("Tfcontabiliza"));
        });
        return revise_contabilizacion(31, id_);
    }

    std::optional<SesionGui> s_;
    std::optional<ModulosDePrueba> m_;
    int id_ = 0;
};

void PruebaContabiliza::a_la_vista() {
    proponga();
    s_->dm.confirmar_contabilizacion = true;
    Interlocutor i;
    const bool si = revise([&](Tfcontabiliza& p) {
        con_foco();
        agote_eventos();
        p.grab().save("/tmp/contabiliza.png");
        oprima(Qt::Key_PageDown, Qt::ControlModifier);
        p.grab().save("/tmp/contabiliza_niif.png");
        i.espere("Es necesario grabar el comprobante para poder cerrar");
        oprima(Qt::Key_Escape);
        oprima(Qt::Key_Escape);
        oprima(Qt::Key_F2);
    }, i);
    QVERIFY(si);
}

QTEST_MAIN(PruebaContabiliza)
#include "prueba_contabiliza.moc"
