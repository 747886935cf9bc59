#include "catalogues/forma_articulo.h"

#include "sesion/tfdm.h"
#include "sesion/tfdmart.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/fechadato.h"
#include "toolkit/controles/imagendato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/formulario.h"
#include "toolkit/sin_grabar.h"

#include <QFileDialog>

FormaArticulo::FormaArticulo(const QString& clase, const QString& titulo)
    : Pantalla(clase, titulo) {
    PArticulo = new Proveedor(this, "PArticulo", &fdmArt().TArticulo);
    CArticulo = new ConjuntoDatos(this, "CArticulo", PArticulo);
    cuide_lo_digitado(*this, {CArticulo});
    defina_campos();
    arme();
}

void FormaArticulo::defina_campos() {
    ConjuntoDatos& a = *CArticulo;
    a.texto("ARTI_COD", 15).requerido().etiqueta("Código");
    a.texto("ARTI_DES", 60).etiqueta("Descripción");
    for (const char* bandera : {"ARTI_DESVAR", "ARTI_TIPO", "ARTI_EXIST"})
        a.bandera(bandera);
    for (const char* codigo : {"ARTI_UNIDAD", "GRUP_COD", "SUBG_COD", "MARC_COD", "ESAR_COD",
                               "ARTI_USUARIO", "TAIV_COD"})
        a.texto(codigo, 10);
    a.fecha("ARTI_FECHA");
    for (const char* importe : {"ARTI_PRECIO", "ARTI_CONSUMO", "ARTI_IMPOTRO"})
        a.decimal(importe, 2).formato("#,##0.00");
    for (const char* medida :
         {"ARTI_PESO", "ARTI_ANCHO", "ARTI_ALTO", "ARTI_LARGO", "ARTI_MAX", "ARTI_MIN"})
        a.decimal(medida, 4).formato("#,##0.####");
    a.entero("ARTI_DIAS");
    a.memo("ARTI_OBS");
    a.blob("ARTI_FOTO");
}

void FormaArticulo::arme() {
    const auto editor = [this](const QString& campo, int ancho) {
        auto* e = new EditorDato(CArticulo, campo, this);
        e->setObjectName("E" + campo);
        e->ancho(ancho);
        return e;
    };
    ECodigo = editor("ARTI_COD", 16);
    EDescripcion = editor("ARTI_DES", 50);
    auto* variable = new CasillaDato("Descripción variable", CArticulo, "ARTI_DESVAR", this);
    auto* observaciones = new MemoDato(CArticulo, "ARTI_OBS", this);
    observaciones->lineas(3);
    observaciones->setAccessibleName("Observaciones");
    foto_ = new ImagenDato(CArticulo, "ARTI_FOTO", this);
    foto_->setObjectName("IFoto");
    foto_->setAccessibleName("Foto del artículo");
    auto* cargar = new QPushButton("&Foto…", this);
    cargar->setObjectName("SBFoto");
    cargar->setAutoDefault(false);
    connect(cargar, &QPushButton::clicked, this, [this] { proteja([this] { SBFotoClick(); }); });

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save",
                                  QKeySequence(Qt::Key_F2), [this] { SBGrabarClick(); }));
    barra->boton("SBCancelar", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                 [this] { close(); });
    Formulario(this)
        .grupo("Artículo")
        .fila({{"&Código", ECodigo}, {"&Unidad", editor("ARTI_UNIDAD", 10)}})
        .fila("&Descripción", EDescripcion)
        .fila({{"Tipo", editor("ARTI_TIPO", 3)},
               {"Existencia", editor("ARTI_EXIST", 3)},
               {"Estado", editor("ESAR_COD", 8)},
               {"", variable}})
        .fila({{"&Grupo", editor("GRUP_COD", 10)},
               {"Subgrupo", editor("SUBG_COD", 10)},
               {"Marca", editor("MARC_COD", 10)}})
        .grupo("Precio e impuestos")
        .fila({{"&Precio", editor("ARTI_PRECIO", 16)}, {"Tarifa de IVA", editor("TAIV_COD", 8)}})
        .fila({{"Impoconsumo", editor("ARTI_CONSUMO", 16)},
               {"Otro impuesto", editor("ARTI_IMPOTRO", 16)}})
        .fila("Fecha", new FechaDato(CArticulo, "ARTI_FECHA", this))
        .al_lado()
        .grupo("Medidas y existencias")
        .fila({{"Peso", editor("ARTI_PESO", 10)}, {"Ancho", editor("ARTI_ANCHO", 10)}})
        .fila({{"Alto", editor("ARTI_ALTO", 10)}, {"Largo", editor("ARTI_LARGO", 10)}})
        .fila({{"Mínimo", editor("ARTI_MIN", 10)}, {"Máximo", editor("ARTI_MAX", 10)}})
        .fila("Días de reposición", editor("ARTI_DIAS", 6))
        .fin_grupo()
        .grupo("Observaciones")
        .ancha(observaciones)
        .al_lado()
        .grupo("Foto")
        .ancha(foto_)
        .ancha(cargar, 0)
        .fin_grupo()
        .botones(barra);
    enter_como_tab();
    tamano(860, 560);
}

void FormaArticulo::SBFotoClick() {
    const QString ruta = QFileDialog::getOpenFileName(this, "Foto del artículo", {},
                                                      "Imágenes (*.png *.jpg *.jpeg)");
    if (!ruta.isEmpty())
        foto_->cargue_archivo(ruta);
}

bool FormaArticulo::FormClose() {
    CArticulo->Cancel();
    CArticulo->Close();
    return true;
}
