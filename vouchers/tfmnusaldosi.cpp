#include "vouchers/tfmnusaldosi.h"

#include "sesion/apertura.h"

Tfmnusaldosi::Tfmnusaldosi() : MenuBotones("Tfmnusaldosi", "Saldos iniciales") {
    opcion("SBSaldos2649", "Saldos Dec.2649        ", "go-first",
           [] { abra_o_avise("Tfsaldiniciales"); });
    opcion("SBAperturaNiif", "Balance apertura NIIF ", "x-office-spreadsheet",
           [] { abra_o_avise("Tfbalaperturaniif"); });
}
