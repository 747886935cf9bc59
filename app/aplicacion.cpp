#include "app/aplicacion.h"

#include "app/marca.h"
#include "app/tema/tema_sistema.h"
#include "toolkit/estilo.h"
#include "toolkit/proteccion.h"

#include <QIcon>
#include <QLocale>

Aplicacion::Aplicacion(int& cuantos, char** argumentos) : QApplication(cuantos, argumentos) {
    // No es el nombre para mostrar, que Qt agregaría al título de cada ventana.
    setApplicationName(QStringLiteral("Contabilidad - Quorvex 2018"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Colombia));
    const auto fije_tema = [this](bool oscuro) {
        setProperty("tema", oscuro ? "oscuro" : "claro");
        aplique_estilo(*this, colores_empresa());
    };
    // Se oye antes de preguntar, para no perder el cambio que ocurra entre las dos cosas.
    connect(new VigiaTema(this), &VigiaTema::cambio, this, fije_tema);
    if (escritorio_oscuro())
        fije_tema(true);
    else
        aplique_estilo(*this);
    QIcon icono;
    for (const int lado : {16, 24, 32, 48, 64, 128})
        icono.addPixmap(marca(lado));
    setWindowIcon(icono);
}

bool Aplicacion::notify(QObject* receptor, QEvent* evento) {
    bool atendido = false;
    proteja([&] { atendido = QApplication::notify(receptor, evento); });
    return atendido;
}
