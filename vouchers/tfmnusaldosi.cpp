#include "vouchers/tfmnusaldosi.h"

Tfmnusaldosi::Tfmnusaldosi() : MenuBotones("Tfmnusaldosi", "Saldos iniciales") {
    opcion("SBSaldos2649", "Saldos Dec.2649        ", "x-office-spreadsheet",
           [] { pantallas().abrir("Tfsaldiniciales"); });
    opcion("SBAperturaNiif", "Balance apertura NIIF ", "x-office-spreadsheet",
           [] { pantallas().abrir("Tfbalaperturaniif"); });
}
