#include "toolkit/lista_teclas.h"

#include "toolkit/estilo.h"
#include "toolkit/letras_alt.h"
#include "toolkit/pantalla.h"
#include "toolkit/pivote/zonas_cubo.h"
#include "toolkit/rejilla/rejilla.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr char kTeclaDelControl[] = "tecla_del_control";

QString nombre_de_tecla(const Tecla& t) {
    static const QHash<int, QString> nombres{
        {Qt::Key_Return, "Enter"},        {Qt::Key_Escape, "Esc"},    {Qt::Key_PageDown, "Av Pág"},
        {Qt::Key_PageUp, "Re Pág"},       {Qt::Key_Home, "Inicio"},   {Qt::Key_End, "Fin"},
        {Qt::Key_Delete, "Supr"},         {Qt::Key_Insert, "Insert"}, {Qt::Key_Left, "Izquierda"},
        {Qt::Key_Right, "Derecha"},       {Qt::Key_Up, "Arriba"},     {Qt::Key_Down, "Abajo"},
        {Qt::Key_Backspace, "Retroceso"}, {Qt::Key_Space, "Espacio"}, {Qt::Key_Tab, "Tab"}};
    QString texto;
    if (t.modificadores & Qt::ControlModifier)
        texto += "Ctrl+";
    if (t.modificadores & Qt::AltModifier)
        texto += "Alt+";
    if (t.modificadores & Qt::ShiftModifier)
        texto += "Mayús+";
    if (t.modificadores & Qt::KeypadModifier)
        texto += "Num ";
    return texto + nombres.value(t.clave, QKeySequence(t.clave).toString());
}

/// Lo que hacen las teclas que no oprimen un botón y se declararon por su nombre corto.
QString accion_conocida(const QString& nombre) {
    static const QHash<QString, QString> acciones{
        {"sugiera_db_cr", "Proponer el valor que cuadra"},
        {"PageControl1", "Pasar a la otra página"},
        {"Tfterceros", "Buscar terceros"},
        {"Tfcentros", "Buscar proyectos y centros"},
        {"Tfcuentas", "Buscar cuentas"},
        {"Tfauxiliar", "Ver el auxiliar de la cuenta"},
        {"actualice_balance", "Leer otra vez el balance"},
        {"lista", "Buscar el valor de la caja en su lista"},
        {"Enter", "Abrir o escoger la fila"},
        {"formato base", "Imprimir con el formato base"},
    };
    return acciones.value(nombre);
}

/// "F2:Grabar" es "Grabar".
QString sin_tecla(QString texto) {
    texto.remove('&');
    const qsizetype dos_puntos = texto.indexOf(':');
    return (dos_puntos > 0 && dos_puntos <= 12 ? texto.mid(dos_puntos + 1) : texto).trimmed();
}

QString explique(const Pantalla& p, const QString& nombre) {
    if (const QString conocida = accion_conocida(nombre); !conocida.isEmpty())
        return conocida;
    if (const auto* boton = p.findChild<QPushButton*>(nombre)) {
        const QString texto = sin_tecla(boton->text());
        return texto.isEmpty() ? boton->accessibleName() : texto;
    }
    if (const auto* control = p.findChild<QWidget*>(nombre))
        return "Ir a " + (control->accessibleName().isEmpty() ? QStringLiteral("la lista")
                                                              : control->accessibleName());
    if (nombre.contains(", ")) {
        QStringList todas;
        for (const QString& n : nombre.split(", "))
            todas << explique(p, n);
        return todas.join(" y ");
    }
    return nombre.isEmpty() ? nombre : nombre.at(0).toUpper() + sin_tecla(nombre).mid(1);
}

QVector<TeclaExplicada> de_rejilla(const Rejilla& r) {
    QVector<TeclaExplicada> lista{{"Flechas, Tab", "Pasar de una celda a otra"},
                                  {"Ctrl+Inicio, Ctrl+Fin", "Ir a la primera o a la última fila"},
                                  {"Mayús+flechas, Ctrl+C", "Seleccionar y copiar"}};
    if (r.dgMultiSelect())
        lista << TeclaExplicada{"Espacio, Ctrl+A", "Marcar la fila, o todas"};
    if (r.ReadOnly) {
        if (r.OnReturn || r.OnDblClick)
            lista.prepend({"Enter", accion_conocida("Enter")});
        lista << TeclaExplicada{"Letras y números", "Ubicarse en lo que se teclea"};
        return lista;
    }
    lista << TeclaExplicada{"Ctrl+Enter, Retroceso", "Corregir lo que la celda tiene"}
          << TeclaExplicada{"Supr", "Vaciar la celda"};
    if (r.reclama_escape)
        lista << TeclaExplicada{"Esc", "Dejar la celda, y luego la fila, como estaban"};
    lista << TeclaExplicada{"Ctrl+V", "Pegar lo copiado de otra parte"};
    // Con un orden propio, las filas pegadas cambian de lugar: no hay a qué volver.
    if (r.OnDeshacer)
        lista << TeclaExplicada{"Ctrl+Z", "Deshacer lo último que se pegó o se trajo"};
    else if (r.conjunto() && r.conjunto()->IndexFieldNames().isEmpty())
        lista << TeclaExplicada{"Ctrl+Z", "Deshacer lo último que se pegó"};
    if (r.permite_insertar)
        lista << TeclaExplicada{"Abajo en la última, Insert", "Agregar o insertar una fila"};
    if (r.permite_borrar)
        lista << TeclaExplicada{"Ctrl+Supr", "Borrar la fila"};
    for (int c = 0; c < r.cuenta_columnas(); ++c)
        if (r.columna(c).Sugiere) {
            lista << TeclaExplicada{"Abajo al teclear un código o un nombre",
                                    "Tomar una de las sugerencias"};
            break;
        }
    return lista;
}

/// Las del cubo: en la cuadrícula y en las listas de campos.
QVector<TeclaExplicada> de_cubo() {
    return {{"Espacio, Mayús+Espacio", "Plegar o abrir la fila, o la columna"},
            {"Num +, Num -", "Abrir o plegar un nivel de las filas; con Ctrl, de las columnas"},
            {"F, C, T, V en un campo", "Llevarlo a filas, columnas, filtros o valores"},
            {"Supr en un campo", "Sacarlo"},
            {"Alt+Arriba, Alt+Abajo en un campo", "Cambiarlo de orden"},
            {"Enter en un campo", "Escoger sus valores, o cómo se muestra la medida"}};
}

bool atiende(const Pantalla& p, int clave) {
    const QVector<Tecla>& todas = p.teclas();
    return std::any_of(todas.begin(), todas.end(), [clave](const Tecla& t) {
        return t.clave == clave && t.modificadores == Qt::NoModifier;
    });
}

} // namespace

QVector<TeclaExplicada> teclas_explicadas(const Pantalla& p) {
    QVector<TeclaExplicada> lista;
    for (const Tecla& t : p.teclas()) {
        const auto* boton = t.accion ? nullptr : p.findChild<QPushButton*>(t.nombre);
        if (!t.accion && (!boton || !boton->isEnabledTo(&p) || !boton->isVisibleTo(&p)))
            continue;
        lista << TeclaExplicada{nombre_de_tecla(t), explique(p, t.nombre)};
    }
    // Lo que un control hace con una tecla que no está en la tabla de la pantalla.
    for (const QWidget* w : p.findChildren<QWidget*>())
        if (const QStringList suya = w->property(kTeclaDelControl).toStringList();
            suya.size() == 2 && w->isVisibleTo(&p))
            lista << TeclaExplicada{suya[0], suya[1]};
    for (const Rejilla* r : p.findChildren<Rejilla*>())
        if (r->isVisibleTo(&p)) {
            // Una tecla que la pantalla toma para sí no llega a la rejilla.
            for (const TeclaExplicada& t : de_rejilla(*r))
                if (t.tecla != "Enter" || !atiende(p, Qt::Key_Return))
                    lista << t;
            break;
        }
    if (p.findChild<ZonasCubo*>())
        lista << de_cubo();
    lista << TeclaExplicada{"F1", "Ver esta lista"};
    return lista;
}

void explique_tecla(QWidget& control, const QString& tecla, const QString& que_hace) {
    control.setProperty(kTeclaDelControl, QStringList{tecla, que_hace});
}

QString nombre_de_tecla(const QKeySequence& tecla) {
    return tecla.isEmpty()
               ? QString()
               : nombre_de_tecla(Tecla{tecla[0].key(), tecla[0].keyboardModifiers(), {}, {}});
}

void muestre_teclas(Pantalla& pantalla) {
    muestre_teclas(pantalla.window(), pantalla.windowTitle(), teclas_explicadas(pantalla));
}

void muestre_teclas(QWidget* ventana, const QString& titulo,
                    const QVector<TeclaExplicada>& teclas) {
    QDialog dialogo(ventana);
    dialogo.setObjectName(QStringLiteral("teclas_de_pantalla"));
    dialogo.setWindowTitle("Teclas de " + titulo);
    auto* tabla = new QTreeWidget;
    tabla->setObjectName(QStringLiteral("tabla_teclas"));
    tabla->setAccessibleName(QStringLiteral("Teclas"));
    tabla->setHeaderLabels({QStringLiteral("Tecla"), QStringLiteral("Qué hace")});
    tabla->setRootIsDecorated(false);
    tabla->setAlternatingRowColors(true);
    for (const TeclaExplicada& t : teclas)
        new QTreeWidgetItem(tabla, {t.tecla, t.que_hace});
    for (const int columna : {0, 1})
        tabla->resizeColumnToContents(columna);
    auto* botones = new QDialogButtonBox;
    botones->addButton(QStringLiteral("Salir"), QDialogButtonBox::RejectRole);
    QObject::connect(botones, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
    auto* todo = new QVBoxLayout(&dialogo);
    todo->addWidget(tabla);
    todo->addWidget(botones);
    ponga_letras(dialogo);
    const int ancho = tabla->columnWidth(0) + tabla->columnWidth(1) + paso(6);
    dialogo.resize(qBound(escalado(520), ancho, escalado(900)), escalado(460));
    tabla->setCurrentItem(tabla->topLevelItem(0));
    tabla->setFocus();
    dialogo.exec();
}
