#include "herramientas/demo_definibles.h"

#include "herramientas/demo_formatos.h"

namespace {

constexpr int kMargen = 120, kFin = 1380, kLibro = 1240; // en la cuadrícula de 1500 por 2000
constexpr int kLetra = 9, kMenuda = 8, kTitulo = 14, kGrande = 16;

/// Un informe que se arma elemento por elemento.
class Informe {
public:
    struct Aspecto {
        int cuerpo = kLetra;
        int decimales = 0;
        const char* operacion = "";
        int factor = 0;
    };
    Informe(Conexion& c, InformeDemo codigo, const char* nombre, const char* titulo,
            const char* subtitulo, bool niif)
        : c_(c), codigo_(codigo), libro_(niif ? "Libro NIIF" : "Libro 2649") {
        c_.ejecute(QStringLiteral("insert into formatos_contables (foco_id, foco_nombre,"
                                  " foco_titulo, foco_subtitulo, foco_paginas, foco_niif)"
                                  " values (?,?,?,?,1,?)"),
                   {Valor(int(codigo)), Valor(QString::fromUtf8(nombre)),
                    Valor(QString::fromUtf8(titulo)), Valor(QString::fromUtf8(subtitulo)),
                    Valor(niif ? "S" : "N")});
    }
    void dato(const char* que, int x, int y, Aspecto aspecto) {
        c_.ejecute(QStringLiteral("insert into formatocontable_detalle (foco_id, focd_item,"
                                  " focd_cuentas, focd_posx, focd_posy, focd_font, focd_fsize,"
                                  " focd_ini, focd_long, focd_oper, focd_factor, focd_pagina)"
                                  " values (?,?,?,?,?,'Arial',?,1,?,?,?,1)"),
                   {Valor(codigo_), Valor(++datos_), Valor(que), Valor(x), Valor(y),
                    Valor(aspecto.cuerpo), Valor(aspecto.decimales), Valor(aspecto.operacion),
                    aspecto.factor ? Valor(aspecto.factor) : Valor()});
    }
    /// Un texto que sale de los datos de la compañía o de la impresión.
    void texto_de(const char* que, int x, int y, int cuerpo = kLetra) {
        dato(que, x, y, {cuerpo, 0, "", 0});
    }
    void texto(const char* cadena, int x, int y, int cuerpo = kLetra) {
        elemento("T", x, y, 0, 0, Valor(QString::fromUtf8(cadena)), Valor(cuerpo));
    }
    void raya(int x, int y, int ancho) { elemento("L", x, y, ancho, 0); }
    void cuadro(int x, int y, int ancho, int alto) { elemento("C", x, y, ancho, alto); }
    void imagen(const QByteArray& archivo, int x, int y, int ancho, int alto) {
        elemento("G", x, y, ancho, alto, {}, {}, Valor(archivo));
    }
    void nit_y_libro(int x, int y) {
        texto("NIT", x, y);
        texto_de("NI", x + 50, y);
        texto(libro_, kLibro, y);
    }
    void membrete(int y) {
        texto_de("NO", kMargen, y, kTitulo);
        nit_y_libro(kMargen, y + 42);
        texto_de("TI", kMargen, y + 82, 12);
        texto_de("ST", kMargen, y + 118, kMenuda);
        texto("Impreso", kLibro - 90, y + 82);
        texto_de("FE", kLibro, y + 82);
        raya(kMargen, y + 150, kFin - kMargen);
    }

private:
    void elemento(const char* tipo, int x, int y, int ancho, int alto, const Valor& cadena = {},
                  const Valor& cuerpo = {}, const Valor& imagen = {}) {
        c_.ejecute(QStringLiteral("insert into formatocontable_textos (foco_id, focd_item,"
                                  " focd_tipo, focd_posx, focd_posy, focd_x, focd_y, focd_cadena,"
                                  " focd_font, focd_fsize, focd_pagina, focd_imagen)"
                                  " values (?,?,?,?,?,?,?,?,'Arial',?,1,?)"),
                   {Valor(codigo_), Valor(++elementos_), Valor(tipo), Valor(x), Valor(y),
                    Valor(ancho), Valor(alto), cadena, cuerpo, imagen});
    }
    Conexion& c_;
    int codigo_;
    const char* libro_;
    int datos_ = 0, elementos_ = 0;
};

/// Renglón de un estado: rótulo y fórmula; `total` va más grande y con su raya.
struct RenglonEstado {
    const char *rotulo, *formula;
    bool total = false;
};

void balance(Conexion& c) {
    Informe i(c, BalanceDemo, "Balance general de una página", "Balance general",
              "Al final del período de la sesión, en pesos colombianos", false);
    constexpr int kCifra = 900, kTotal = kFin;
    const RenglonEstado activo[] = {{"Disponible", "SF11"},
                                    {"Inversiones", "SF12"},
                                    {"Deudores", "SF13"},
                                    {"Inventarios", "SF14"},
                                    {"Propiedades, planta y equipo", "SF15"},
                                    {"Intangibles y diferidos", "SF16+SF17"},
                                    {"Otros activos", "SF18+SF19"},
                                    {"Total activo", "SF1", true}};
    const RenglonEstado pasivo[] = {
        {"Obligaciones financieras", "SF21"}, {"Proveedores", "SF22"},
        {"Cuentas por pagar", "SF23"},        {"Impuestos, gravámenes y tasas", "SF24"},
        {"Obligaciones laborales", "SF25"},   {"Pasivos estimados y otros", "SF26+SF27+SF28+SF29"},
        {"Total pasivo", "SF2", true}};
    const RenglonEstado patrimonio[] = {
        {"Capital", "SF31+SF32"},
        {"Reservas", "SF33"},
        {"Revalorización y otros", "SF34+SF35+SF36+SF38"},
        {"Resultados de ejercicios anteriores", "SF37"},
        {"Resultado del ejercicio en curso", "SF4+SF5+SF6+SF7"},
        {"Total patrimonio", "SF3+SF4+SF5+SF6+SF7", true},
        {"Total pasivo y patrimonio", "SF2+SF3+SF4+SF5+SF6+SF7", true}};
    i.membrete(100);
    int y = 290;
    const auto seccion = [&](const char* titulo, const auto& renglones, bool al_credito) {
        i.texto(titulo, kMargen, y, 11);
        y += 50;
        for (const RenglonEstado& r : renglones) {
            if (r.total)
                i.raya(kTotal - 260, y - 6, 260);
            i.texto(r.rotulo, kMargen + (r.total ? 0 : 40), y, r.total ? 10 : kLetra);
            const int cuerpo = r.total ? 10 : kLetra;
            // Lo que el libro lleva al crédito se lee en positivo. Con centavos: redondeados a
            // pesos, los renglones no siempre suman su total.
            i.dato(r.formula, r.total ? kTotal : kCifra, y,
                   {cuerpo, 2, al_credito ? "*" : "", al_credito ? -1 : 0});
            y += r.total ? 62 : 40;
        }
    };
    seccion("Activo", activo, false);
    seccion("Pasivo", pasivo, true);
    seccion("Patrimonio", patrimonio, true);
    i.texto("Diferencia (debe ser cero)", kMargen, y, kMenuda);
    i.dato("SF1+SF2+SF3+SF4+SF5+SF6+SF7", kTotal, y, {kMenuda, 2});
    for (const auto& [rotulo, x] : {std::pair{"Representante legal", 120},
                                    {"Contador público", 560},
                                    {"Revisor fiscal", 1000}}) {
        i.raya(x, 1850, 360);
        i.texto(rotulo, x, 1860, kMenuda);
    }
}

void resultados(Conexion& c) {
    Informe i(c, ResultadosDemo, "Estado de resultados con porcentajes", "Estado de resultados",
              "Del mes y acumulado del año, con su porcentaje de los ingresos operacionales", true);
    constexpr int kMes = 800, kPorMes = 920, kAno = 1240, kPorAno = kFin;
    struct Renglon {
        const char *rotulo, *mes, *ano, *por_mes, *por_ano;
        int signo;
        bool total = false;
    };
    const Renglon renglones[] = {
        {"Ingresos operacionales", "MV41", "SF41", "100*MV41/MV41", "100*SF41/SF41", -1},
        {"Costo de ventas", "MV6", "SF6", "100*MV6/MV41", "100*SF6/SF41", 1},
        {"Utilidad bruta", "MV41+MV6", "SF41+SF6", "100*(MV41+MV6)/MV41", "100*(SF41+SF6)/SF41", -1,
         true},
        {"Gastos de administración", "MV51", "SF51", "100*MV51/MV41", "100*SF51/SF41", 1},
        {"Gastos de ventas", "MV52", "SF52", "100*MV52/MV41", "100*SF52/SF41", 1},
        {"Utilidad operacional", "MV41+MV6+MV51+MV52", "SF41+SF6+SF51+SF52",
         "100*(MV41+MV6+MV51+MV52)/MV41", "100*(SF41+SF6+SF51+SF52)/SF41", -1, true},
        {"Ingresos no operacionales", "MV42", "SF42", "100*MV42/MV41", "100*SF42/SF41", -1},
        {"Gastos no operacionales", "MV53", "SF53", "100*MV53/MV41", "100*SF53/SF41", 1},
        {"Impuesto de renta", "MV54", "SF54", "100*MV54/MV41", "100*SF54/SF41", 1},
        {"Utilidad neta", "MV4+MV5+MV6+MV7", "SF4+SF5+SF6+SF7", "100*(MV4+MV5+MV6+MV7)/MV41",
         "100*(SF4+SF5+SF6+SF7)/SF41", -1, true}};
    i.membrete(100);
    for (const auto& [titulo, x] : {std::pair{"Mes", kMes - 55},
                                    {"%", kPorMes - 25},
                                    {"Año", kAno - 55},
                                    {"%", kPorAno - 25}})
        i.texto(titulo, x, 285, kMenuda);
    int y = 340;
    for (const Renglon& r : renglones) {
        const int cuerpo = r.total ? 10 : kLetra;
        if (r.total)
            i.raya(kMes - 240, y - 8, kFin - kMes + 240);
        i.texto(r.rotulo, kMargen, y, cuerpo);
        const Informe::Aspecto pesos{cuerpo, 0, "*", r.signo};
        // Un gasto es positivo en el libro y el ingreso negativo: su porcentaje cambia de signo.
        const Informe::Aspecto porcentaje{kMenuda, 2, "*", r.signo < 0 ? 1 : -1};
        i.dato(r.mes, kMes, y, pesos);
        i.dato(r.por_mes, kPorMes, y, porcentaje);
        i.dato(r.ano, kAno, y, pesos);
        i.dato(r.por_ano, kPorAno, y, porcentaje);
        y += r.total ? 80 : 46;
    }
    i.raya(kMes - 240, y - 36, kFin - kMes + 240);
}

void tablero(Conexion& c) {
    Informe i(c, TableroDemo, "Tablero de gerencia", "Tablero de gerencia",
              "Lo que hay que mirar este mes", false);
    struct Caja {
        const char *titulo, *formula, *nota, *formula_nota;
        int signo = 1, decimales = 0, signo_nota = 1;
    };
    const Caja cajas[] = {
        {"Caja y bancos", "SF11", "Hace un mes", "SM11"},
        {"Cartera de clientes", "SF1305", "Recaudado en el mes", "CR1305"},
        {"Inventarios", "SF14", "Comprado en el mes", "DB14"},
        {"Por pagar a proveedores", "SF22", "Pagado en el mes", "DB22", -1},
        {"Ventas del mes", "MV41", "Mes anterior", "MM41", -1, 0, -1},
        {"Costo del mes", "MV6", "Mes anterior", "MM6"},
        {"Gastos del mes", "MV5", "Mes anterior", "MM5"},
        {"Utilidad del mes", "MV4+MV5+MV6+MV7", "Acumulada", "SF4+SF5+SF6+SF7", -1, 0, -1},
        {"Margen bruto, %", "100*(MV41+MV6)/MV41", "Mes anterior", "100*(MM41+MM6)/MM41", 1, 2},
        {"Liquidez, activo / pasivo", "(SF11+SF13+SF14)/SF2", "Prueba ácida", "(SF11+SF13)/SF2", -1,
         2, -1},
        {"Retención practicada", "CR2365", "Base del mes", "BA2365"},
        {"IVA por pagar", "SF2408", "Generado en el mes", "CR2408", -1}};
    i.imagen(logo_demo(), kMargen, 100, 104, 180);
    i.texto_de("NO", 260, 110, kGrande);
    i.nit_y_libro(260, 160);
    i.texto_de("TI", 260, 200, 12);
    i.texto_de("ST", 260, 243, kMenuda);
    // Es la fecha de impresión: sin su rótulo se lee como el período de las cifras.
    i.texto("Impreso", 1140, 96, kMenuda);
    i.texto_de("FM", 1140, 120, 12);
    i.texto_de("FA", 1310, 120, 12);
    i.raya(kMargen, 300, kFin - kMargen);
    constexpr int kPorFila = 2, kAncho = 610, kAlto = 220, kEntre = 40;
    for (size_t n = 0; n < std::size(cajas); ++n) {
        const Caja& k = cajas[n];
        const int x = kMargen + int(n % kPorFila) * (kAncho + kEntre);
        const int y = 340 + int(n / kPorFila) * (kAlto + kEntre);
        i.cuadro(x, y, kAncho, kAlto);
        i.texto(k.titulo, x + 24, y + 20, 10);
        i.dato(k.formula, x + kAncho - 24, y + 70, {kGrande, k.decimales, "*", k.signo});
        i.texto(k.nota, x + 24, y + 160, kMenuda);
        i.dato(k.formula_nota, x + kAncho - 24, y + 160, {kMenuda, k.decimales, "*", k.signo_nota});
    }
}

} // namespace

void siembre_informes_definibles(Conexion& compania) {
    balance(compania);
    resultados(compania);
    tablero(compania);
}
