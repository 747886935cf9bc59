#include "ledger/balanceporniveles.h"

#include "libro/catalogos.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/peticiones.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"

namespace {
constexpr int kPrimerAnoBalanceporniveles = 1990;
constexpr int kNivelPorOmision = 5;
constexpr int kNivelMasDetallado = 5; ///< tope de "Más detalle", tenga los que tenga ESTRUCTURA
} // namespace

BalancePorNiveles::BalancePorNiveles(const QString& clase, const QString& titulo)
    : ConsultaPeriodo(clase, titulo, kPrimerAnoBalanceporniveles) {
    tamano_del_area(140, 130);
    setProperty("alto_del_area", true); // ese es el que tiene señalado
    connect(&fdmcnt(), &Tfdmcnt::balance_por_recalcular, this, [this] { por_recalcular_ = true; });
}

void BalancePorNiveles::FormCreate() {
    fdm().ConfigurarProviders(this);
    const Valor niveles = CBorrar.valor_unico("select max(estr_nivel) from estructura");
    nivel_ = niveles.nulo() ? kNivelPorOmision : int(niveles.entero());
}

void BalancePorNiveles::BitBtn2Click() {
    if (nivel_ > 1) {
        --nivel_;
        nivel_cambiado();
    }
}

void BalancePorNiveles::BitBtn3Click() {
    if (nivel_ < kNivelMasDetallado) {
        ++nivel_;
        nivel_cambiado();
    }
}

bool BalancePorNiveles::consulte(Libro libro, const QString& codigo, const char* pantalla) {
    // Sobre una fila de grupo no se interrumpe con un diálogo: la razón queda en la barra.
    if (const auto rechazo = revise_cuenta(fdm().Quorvex, libro, codigo)) {
        if (!codigo.isEmpty()) // un balance sin filas no nombra ninguna
            noticia_de_pantalla(rechazo->texto);
        return false;
    }
    pantallas().abrir(pantalla, AbreAuxiliar{.cuenta_auxiliar = codigo});
    return true;
}

void BalancePorNiveles::botones_de_detalle(BarraBotones& barra) {
    barra.boton("BitBtn2", "Menos detalle", "list-remove", {}, [this] { BitBtn2Click(); })
        ->setToolTip("Tecla menos del teclado numérico");
    barra.boton("BitBtn3", "Más detalle", "list-add", {}, [this] { BitBtn3Click(); })
        ->setToolTip("Tecla más del teclado numérico");
    tecla(Qt::Key_Minus, Qt::KeypadModifier, "BitBtn2");
    tecla(Qt::Key_Plus, Qt::KeypadModifier, "BitBtn3");
}
