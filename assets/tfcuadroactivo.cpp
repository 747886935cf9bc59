#include "assets/tfcuadroactivo.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"
#include "toolkit/grafica.h"

#include <QSplitter>
#include <array>
#include <optional>

Tfcuadroactivo::Tfcuadroactivo()
    : Pantalla("Tfcuadroactivo", "Cuadro de depreciación"), CCuadro(cuadro("CCuadro")),
      CCuadroniif(cuadro("CCuadroniif")) {
    DBGridEh1 = rejilla("DBGridEh1", CCuadro);
    DBGridEh2 = rejilla("DBGridEh2", CCuadroniif);
    PageControl1 = new QTabWidget;
    PageControl1->setObjectName("PageControl1");
    PageControl1->addTab(DBGridEh1, "Dec. 2649");
    PageControl1->addTab(DBGridEh2, "NIIF");
    Curva = new Grafica(Grafica::Lineas);
    Curva->setObjectName("Curva");
    Curva->setAccessibleName("Valor en libros del activo");
    auto* division = new QSplitter(Qt::Vertical);
    division->setChildrenCollapsible(false);
    division->addWidget(Curva);
    division->addWidget(PageControl1);
    Curva->setMaximumHeight(escalado(260)); // lo demás que la ventana crezca es de las filas
    division->setStretchFactor(0, 2);
    division->setStretchFactor(1, 3);
    auto* barra = new BarraBotones(this);
    barra->boton("SBImprimir", "F9:Imprimir", "document-print", Qt::Key_F9,
                 [this] { a_la_vista()->imprima(); });
    barra->boton("SBExportar", "F4:Exportar", "document-save-as", Qt::Key_F4, [this] {
        a_la_vista()->seleccione_todo();
        a_la_vista()->guarde_seleccion();
    });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_PageDown, Qt::ControlModifier, "PageControl1",
          [this] { PageControl1->setCurrentIndex(1); });
    tecla(Qt::Key_PageUp, Qt::ControlModifier, "PageControl1",
          [this] { PageControl1->setCurrentIndex(0); });
    Formulario(this).ancha(division).botones(barra);
    tamano(820, 600);
}

ConjuntoDatos& Tfcuadroactivo::cuadro(const char* nombre) {
    auto* sentencia = new Sentencia(this, QString("Q") + (nombre + 1), fdm().Quorvex);
    auto* c = new ConjuntoDatos(
        this, nombre,
        new Proveedor(this, QString("P") + (nombre + 1), sentencia, poAllowCommandText));
    c->texto("PERIODO", 7);
    c->texto("CLASE", 12);
    c->decimal("CARGO").formato("#,###.00");
    c->decimal("ACUMULADO").formato("#,###.00");
    c->decimal("VALOR").formato("#,###.00");
    c->texto("HECHO", 1);
    return *c;
}

Rejilla* Tfcuadroactivo::rejilla(const char* nombre, ConjuntoDatos& conjunto) {
    auto* r = new Rejilla(this, &conjunto);
    r->setObjectName(nombre);
    r->setAccessibleName(windowTitle());
    r->columnas({{"PERIODO", "Mes", 9},
                 {"CLASE", "Movimiento", 14},
                 {"CARGO", "Cargo", 16, Suma},
                 {"ACUMULADO", "Acumulado", 18},
                 {"VALOR", "Valor en libros", 18},
                 {"HECHO", "Hecho", 7, Casilla}});
    r->ReadOnly = true;
    r->pie(true);
    r->texto_vacio = "El activo no tiene qué depreciar en este libro.";
    r->nombre_archivo = "CuadroActivo";
    r->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    // Lo ya contabilizado se lee más fuerte que lo que falta.
    r->OnGetCellParams = [&conjunto](int fila, QFont& letra, QColor&, QColor&) {
        letra.setBold(conjunto.valor_en(fila, conjunto.FieldByName("HECHO")).texto() == "S");
    };
    return r;
}

Rejilla* Tfcuadroactivo::a_la_vista() const {
    return PageControl1->currentIndex() == 0 ? DBGridEh1 : DBGridEh2;
}

void Tfcuadroactivo::FormCreate() {
    fdm().ConfigurarProviders(this);
    activo_ = peticion<AbreActivo>().activo_seleccionado;
    fdm().QBorrar.Open("select acfj_desc, acfj_vrorig from activos_fijos where acfj_cod = " +
                       QuotedStr(activo_));
    const QString nombre = fdm().QBorrar.Fields(0).texto();
    original_ = fdm().QBorrar.Fields(1).moneda();
    fdm().QBorrar.Close();
    setWindowTitle(windowTitle() + ": " + activo_ + "  " + nombre);
    for (Rejilla* r : {DBGridEh1, DBGridEh2})
        r->titulo_impreso =
            windowTitle() + (r == DBGridEh2 ? " · Libro NIIF" : " · Libro 2649") + "  %[Today]";
    CCuadro.Open("select * from cuadro_activo(" + QuotedStr(activo_) + ')');
    CCuadroniif.Open("select * from cuadro_activo_niif(" + QuotedStr(activo_) + ')');
    dibuje();
    DBGridEh1->setFocus();
}

void Tfcuadroactivo::dibuje() {
    // Los dos libros sobre los mismos meses: en los que uno no tiene movimiento conserva su valor.
    QMap<QString, std::array<std::optional<Moneda>, 2>> valores;
    QString ultimo_hecho;
    const ConjuntoDatos* cuadros[] = {&CCuadro, &CCuadroniif};
    for (int libro : {0, 1})
        for (int i = 0; i < cuadros[libro]->RecordCount(); ++i) {
            const auto dato = [&](const char* campo) {
                return cuadros[libro]->valor_en(i, cuadros[libro]->FieldByName(campo));
            };
            const QString mes = dato("PERIODO").texto();
            valores[mes][size_t(libro)] = dato("VALOR").moneda();
            if (dato("HECHO").texto() == "S")
                ultimo_hecho = qMax(ultimo_hecho, mes);
        }
    QStringList meses{"Costo"};
    QVector<SerieGrafica> series{{"Valor Dec. 2649", {original_}}, {"Valor NIIF", {original_}}};
    for (auto i = valores.begin(); i != valores.end(); ++i) {
        meses << i.key();
        for (int libro : {0, 1})
            series[libro].valores << i.value()[size_t(libro)].value_or(
                series[libro].valores.last());
    }
    Curva->muestre(valores.isEmpty() ? QStringList() : meses, series);
    Curva->senale(int(meses.indexOf(ultimo_hecho)));
}

bool Tfcuadroactivo::FormClose() {
    CCuadro.Close();
    CCuadroniif.Close();
    return true;
}
