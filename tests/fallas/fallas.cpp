// fallas: los escenarios de falla enteros, para quien quiera correrlos. Véase README.md o --help.
#include "fallas/escenarios.h"

namespace {

struct Escenario {
    const char* nombre;
    std::function<QStringList(const Corrida&)> corra;
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication aplicacion(argc, argv);
    QCommandLineParser p;
    p.setApplicationDescription(
        "Fallas de verdad sobre bases de verdad. Termina en 0 si nada se perdió, nada quedó a "
        "medias, ningún programa se cayó y ningún mensaje mintió.\n\nEscenarios:\n"
        "  muertes         kill -9 mientras se graba, corrige, cambia de página y borra\n"
        "  restauraciones  kill -9 mientras se restaura un respaldo\n"
        "  cortes          la red cortada en puntos repartidos de una operación\n"
        "  silencios       la red muda, sin cerrarse, en esos mismos puntos\n"
        "  varios          varios programas graban a la vez en un prefijo\n"
        "  todo            los cinco");
    p.addPositionalArgument("escenario", "cuál", "escenario");
    const QCommandLineOption semilla("semilla", "del azar; la misma repite lo mismo", "N", "2018"),
        muertes_("muertes", "cuántas", "N", "200"),
        restauraciones("restauraciones", "cuántas", "N", "30"),
        puntos("puntos", "en que se corta", "N", "300"),
        mudos("mudos", "puntos en que la red calla", "N", "80"),
        programas("programas", "a la vez", "N", "5"),
        cada_uno("cada-uno", "comprobantes de cada programa", "N", "200");
    p.addOptions({semilla, muertes_, restauraciones, puntos, mudos, programas, cada_uno});
    p.addHelpOption();
    p.process(aplicacion);
    const auto numero = [&](const QCommandLineOption& o) { return p.value(o).toInt(); };
    const Escenario escenarios[] = {
        {"muertes", [&](const Corrida& c) { return muertes(numero(muertes_), c); }},
        {"restauraciones",
         [&](const Corrida& c) { return restauraciones_muertas(numero(restauraciones), c); }},
        {"cortes", [&](const Corrida& c) { return cortes(numero(puntos), c); }},
        {"silencios", [&](const Corrida& c) { return silencios(numero(mudos), c); }},
        {"varios",
         [&](const Corrida& c) { return varios_a_la_vez(numero(programas), numero(cada_uno), c); }},
    };
    const QString pedido = p.positionalArguments().value(0);
    Corrida corrida;
    corrida.semilla = p.value(semilla).toUInt();
    corrida.diga = [](const QString& como_va) {
        std::printf("%s\n", qPrintable(como_va));
        std::fflush(stdout);
    };
    bool hubo = false, bien = true;
    for (const Escenario& e : escenarios)
        if (pedido == "todo" || pedido == QLatin1String(e.nombre)) {
            hubo = true;
            const QStringList faltas = e.corra(corrida);
            bien = bien && faltas.isEmpty();
            corrida.diga(QString("%1: %2").arg(e.nombre, faltas.isEmpty() ? "bien" : "FALLA"));
            for (const QString& f : faltas)
                corrida.diga("  " + f);
        }
    if (!hubo)
        p.showHelp(2);
    return bien ? 0 : 1;
}
