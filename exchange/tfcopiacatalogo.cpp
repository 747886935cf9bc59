#include "exchange/tfcopiacatalogo.h"

#include "exchange/caja_de_codigo.h"
#include "exchange/pch.h"

Tfcopiacatalogo::Tfcopiacatalogo()
    : FormaCopia("Tfcopiacatalogo", "Copiar cuentas a otra compañía") {
    Nivel = new QLineEdit;
    Nivel->setObjectName("Nivel");
    Nivel->setMaxLength(2);
    mida_como_codigo(*Nivel);
    ckniif = new QCheckBox("Plan NIIF");
    ckniif->setObjectName("ckniif");
    Formulario f(this);
    arme_companias(f);
    arme_rango(f, "Desde la cuenta");
    f.fila({{"Hasta el nivel:", Nivel}, {"", ckniif}});
    arme_botones(f);
    tamano(620, 290);
}

std::optional<ResultadoCopia> Tfcopiacatalogo::copie(const RangoCodigos& rango) {
    if (Nivel->text().trimmed().isEmpty())
        Nivel->setText("6");
    const QString nivel = Nivel->text().trimmed();
    const Libro libro = ckniif->isChecked() ? Libro::Niif : Libro::Decreto2649;
    if (hay_cuentas(Conexion2, libro, rango)) {
        if (!pregunte_con_no("Ya existen cuentas en el rango especificado en la compañía de "
                             "destino, este proceso borrará dichas cuentas. Continuar?"))
            return {};
        anuncie("Borrando cuentas de " + Compania2->text().trimmed());
        borre_rango(Conexion2, libro, rango,
                    cuentas_por_llegar(Conexion1, Conexion2, libro, rango, nivel));
    }
    anuncie("Copiando catálogo de cuentas...");
    return copie_cuentas(Conexion1, Conexion2, libro, rango, nivel, avance());
}
