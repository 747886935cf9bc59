#include "exchange/tfimportarinv3.h"

#include "datos/firebird/concuerde.h"
#include "exchange/pch.h"
#include "sesion/instalacion.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/letrero_al_pie.h"
#include "toolkit/proteccion.h"

namespace {
/// En el orden de su lista: ninguno, comillas y comilla simple.
constexpr char kDelimitadores[] = {0, 0x22, 0x27};

bool hay_columna(qint64 columna) {
    return columna >= 1 && columna <= LectorRegistros::kColumnas;
}
} // namespace

Tfimportarinv3::Tfimportarinv3()
    : Pantalla("Tfimportarinv3", "Importación de datos contables 3/3") {
    defina_conjuntos();
    construya();
}

void Tfimportarinv3::defina_conjuntos() {
    CImportar.entero("IMIN_TIPO");
    CImportar.texto("IMIN_DATO", 60);
    CImportar.entero("IMIN_COLUMNA");
    CImportar.entero("IMIN_ANCHO");
    CNombres.texto("NOMBRE", 30);
    CNombres.texto("DESCRIPCION", 50);
    ConjuntoDatos& c = CImportacion;
    c.texto("DATO", 60).ReadOnly = true;
    c.entero("COLUMNA").etiqueta("Columna").OnValidate = [](Campo&, const Valor& v) {
        if (!v.nulo() && !hay_columna(v.entero()))
            throw ErrorDatos(QStringLiteral("La columna debe estar entre 1 y %1.")
                                 .arg(LectorRegistros::kColumnas));
    };
    c.busqueda("NomDato", 50, "DATO", &CNombres, "NOMBRE", "DESCRIPCION");
    c.entero("ANCHO").etiqueta("Ancho").OnValidate = [](Campo&, const Valor& v) {
        if (v.entero() < 0)
            throw ErrorDatos(QStringLiteral("El ancho no puede ser negativo."));
    };
    c.texto("IMPORTAR", 2).etiqueta("Importar").OnValidate = [](Campo&, const Valor& v) {
        if (v.texto() != "SI" && v.texto() != "NO")
            throw ErrorDatos(QStringLiteral("En Importar solo vale SI o NO."));
    };
}

void Tfimportarinv3::construya() {
    DBGridEh1 = new Rejilla(this, &CImportacion);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Columnas del archivo");
    DBGridEh1->columnas({{"NomDato", "Dato", 34, SoloLectura},
                         {"COLUMNA", "Columna", 9},
                         {"ANCHO", "Ancho", 8},
                         {"IMPORTAR", "Importar", 9}});
    DBGridEh1->texto_vacio = "El archivo no tiene columnas por importar.";
    DBGridEh1->lista("IMPORTAR", {"SI", "NO"});
    DBGridEh1->permite_insertar = DBGridEh1->permite_borrar = false;
    DBGridEh1->enter_como_tab = true;
    LAvance = new QLabel;
    LAvance->setObjectName("LAvance");
    LAvance->setTextFormat(Qt::PlainText);
    LAvance->setWordWrap(true);
    LAvance->hide();
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Importar", "document-open", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBEnsayo", "F5:Ensayar", "view-refresh", Qt::Key_F5, [this] { SBEnsayoClick(); });
    barra->boton("SBRechazos", "F8:Rechazados", "dialog-warning", Qt::Key_F8,
                 [] { muestre_rechazos(); });
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).ancha(DBGridEh1, 1).ancha(LAvance, 0).botones(barra);
    tamano(660, 520);
}

void Tfimportarinv3::FormCreate() {
    fdm().ConfigurarProviders(this);
    asistente_ = peticion<AsistenteImportacion>();
    CNombres.Open();
    CImportar.Open();
    CImportar.Filter(QStringLiteral("IMIN_TIPO = %1").arg(asistente_.tipo));
    CImportar.Filtered(true);
    llene_columnas();
    if (asistente_.niif)
        diga_al_pie(LAvance, "Los datos entran al libro NIIF.");
    DBGridEh1->setFocus();
    DBGridEh1->SelectedIndex(1);
}

void Tfimportarinv3::llene_columnas() {
    struct Renglon {
        QString dato;
        Valor columna, ancho;
        bool entra;
    };
    QVector<Renglon> renglones;
    const QVector<ColumnaImportacion> anteriores = columnas_recordadas(asistente_.tipo);
    CImportar.FetchAll();
    for (CImportar.First(); !CImportar.Eof(); CImportar.Next()) {
        const QString dato = CImportar.FieldByName("IMIN_DATO").texto();
        const auto antes = std::find_if(anteriores.begin(), anteriores.end(),
                                        [&](const auto& c) { return c.dato == dato; });
        // Lo que no es una columna no se puede poner en la rejilla; vacía se recuerda como cero.
        const bool recordada =
            antes != anteriores.end() && (antes->columna == 0 || hay_columna(qAbs(antes->columna)));
        const qint64 columna =
            recordada ? qAbs(antes->columna) : CImportar.FieldByName("IMIN_COLUMNA").entero();
        const Valor ancho = CImportar.FieldByName("IMIN_ANCHO").valor();
        renglones << Renglon{dato, hay_columna(columna) ? Valor(columna) : Valor(),
                             ancho.entero() < 0 ? Valor() : ancho,
                             !recordada || antes->columna >= 0};
    }
    // Por columna al abrir. Un índice se llevaría la fila de debajo de quien la cambia.
    std::stable_sort(renglones.begin(), renglones.end(), [](const Renglon& a, const Renglon& b) {
        return a.columna.entero() < b.columna.entero();
    });
    CImportacion.CreateDataSet();
    CImportacion.DisableControls();
    CImportacion.FieldByName("DATO").ReadOnly = false;
    for (const Renglon& r : renglones) {
        CImportacion.Append();
        CImportacion.FieldByName("DATO") = r.dato;
        CImportacion.FieldByName("COLUMNA") = r.columna;
        CImportacion.FieldByName("ANCHO") = r.ancho;
        CImportacion.FieldByName("IMPORTAR") = r.entra ? "SI" : "NO";
        CImportacion.Post();
    }
    CImportacion.FieldByName("DATO").ReadOnly = true;
    CImportacion.First();
    CImportacion.EnableControls();
}

/// Con `todas`, también las que no se traen, con su columna en negativo.
QVector<ColumnaImportacion> Tfimportarinv3::columnas(bool todas) const {
    QVector<ColumnaImportacion> lista;
    CImportacion.recorra_todas([&](const Fila& fila) {
        const auto dato = [&](const char* campo) {
            return CImportacion.valor_de(fila, CImportacion.FieldByName(campo));
        };
        const bool entra = dato("IMPORTAR").texto() == "SI";
        if (entra || todas)
            lista.append({dato("DATO").texto(), int(dato("COLUMNA").entero()) * (entra ? 1 : -1)});
    });
    return lista;
}

QString Tfimportarinv3::pregunta_de_saldos() const {
    const Libro libro = asistente_.niif ? Libro::Niif : Libro::Decreto2649;
    const qint64 hay =
        fdm()
            .Quorvex
            .consulte(
                QStringLiteral("select count(*) from saldos_iniciales%1").arg(datos(libro).sufijo))
            .entero();
    return QStringLiteral("Desea borrar los saldos previamente registrados?") +
           (hay == 0 ? QString()
                     : concuerde(hay, "\nCon No, los del archivo se suman al que hay.",
                                 "\nCon No, los del archivo se suman a los %1 que hay."));
}

PeticionImportacion Tfimportarinv3::peticion_de(bool ensayo) {
    PeticionImportacion p;
    p.clase = asistente_.clase();
    p.niif = asistente_.niif;
    p.archivo = asistente_.archivo;
    p.separador = ",;\t"[qBound(0, asistente_.separador, 2)];
    p.delimitador = kDelimitadores[qBound(0, asistente_.delimitador, 2)];
    p.columnas = columnas(false);
    p.ensayo = ensayo;
    p.digito_de_verificacion = !fdm().valor<Llave::LetrasEnNit>();
    if (p.clase == ClaseImportacion::Saldos)
        p.borre_saldos = pregunte_con_no(pregunta_de_saldos());
    return p;
}

ResultadoImportacion Tfimportarinv3::corra(bool ensayo) {
    CImportacion.CheckBrowseMode();
    recuerde_columnas(asistente_.tipo, columnas(true));
    const auto importacion =
        importacion_de(fdm().Quorvex, peticion_de(ensayo), fdmcnt().ajustes_libro(), fdm().usuario);
    if (!ensayo)
        importacion->anote = [this](const QString& mensaje, const LlaveComprobante& llave) {
            error_importacion(mensaje, llave);
        };
    if (!ensayo && diario_)
        importacion->diario = &*diario_;
    sin_bitacora_.clear();
    ResultadoImportacion resultado;
    {
        // Es modal: nada más del programa se toca mientras se escribe.
        AvanceTrabajo avance(this, windowTitle(), 100);
        avance.siga(0);
        importacion->avance = [&](const QString& que, int ciento) {
            return avance.siga(ciento, que);
        };
        resultado = importacion->corra();
    }
    if (resultado.falla)
        reporte_falla(*resultado.falla);
    const QString resumen = (asistente_.niif ? "Libro NIIF: " : "") + resultado.resumen();
    diga_al_pie(LAvance, resumen);
    recuerde_importacion({resultado, asistente_.archivo});
    if (AvisosBarra* barra = fdm().barra())
        barra->texto(resumen);
    if (importacion->diario && diario_->sin_escribir())
        fdm().mostrar_advertencia("No se pudo escribir en " + diario_->ruta() +
                                  ": si se repite este archivo, lo que entró se agrega otra vez.");
    if (!sin_bitacora_.isEmpty())
        fdm().mostrar_advertencia("No se pudo escribir en " + sin_bitacora_ +
                                  ": F8 muestra los rechazados.");
    return resultado;
}

QString Tfimportarinv3::forma() const {
    QStringList forma{QString::number(asistente_.formato), QString::number(asistente_.separador),
                      QString::number(asistente_.delimitador)};
    QStringList datos; // en un solo orden: las filas salen distintas según se hayan editado
    for (const ColumnaImportacion& c : columnas(true))
        datos << c.dato + '=' + QString::number(c.columna);
    datos.sort();
    return (forma + datos).join(' ');
}

bool Tfimportarinv3::prepare_diario() {
    diario_.reset();
    if (asistente_.clase() != ClaseImportacion::Comprobantes)
        return true;
    Conexion& base = fdm().Quorvex;
    const Libro este = asistente_.niif ? Libro::Niif : Libro::Decreto2649,
                otro = asistente_.niif ? Libro::Decreto2649 : Libro::Niif;
    const QString carpeta = diraplicacion_callada(), ruta = base.parametros().base;
    diario_.emplace(carpeta, ruta, este, asistente_.archivo, forma());
    const auto anterior = diario_->anterior(base);
    if (!anterior) {
        const auto del_otro =
            DiarioImportacion(carpeta, ruta, otro, asistente_.archivo, forma()).anterior(base);
        return !del_otro || del_otro->cambio_el_archivo ||
               pregunte_con_no(
                   QStringLiteral("Este archivo se estaba importando al libro %1 y se "
                                  "detuvo. Desea importarlo al libro %2?")
                       .arg(QLatin1String(datos(otro).nombre), QLatin1String(datos(este).nombre)));
    }
    QString texto = QStringLiteral("La importación anterior de este archivo se detuvo ");
    texto += anterior->hasta == 0
                 ? QStringLiteral("antes de que se supiera si entró el primer comprobante")
                 : QStringLiteral("después del comprobante %1 %2 %3, renglón %4")
                       .arg(anterior->llave.tipo, anterior->llave.prefijo, anterior->llave.numero,
                            QString::number(anterior->hasta));
    if (anterior->falta_el_ultimo)
        return pregunte_con_no(texto +
                               ", que ya no está en la base: las líneas de los demás que entraron "
                               "se agregarían otra vez. Desea importarlo todo?");
    if (anterior->cambio_el_archivo)
        return pregunte_con_no(texto +
                               ", y el archivo o sus columnas cambiaron desde entonces: "
                               "las líneas de lo que ya entró se agregarían otra vez. Desea "
                               "importarlo todo?");
    for (const auto& duda : anterior->en_duda)
        if (duda.llave.numero.isEmpty()) {
            texto += ". Revise el siguiente: sin número no se puede saber si entró";
            break;
        }
    const Respuesta r = pregunte_botones(texto + ". Si se importa todo de nuevo, las líneas de lo "
                                                 "que ya entró se agregan otra vez.",
                                         {"Seguir desde allí", "Todo de nuevo"});
    if (r == Primera)
        diario_->siga(*anterior);
    return r != Ninguna;
}

void Tfimportarinv3::SpeedButton1Click() {
    if (!prepare_diario())
        return;
    const ResultadoImportacion resultado = corra(false);
    emit fdmcnt().balance_por_recalcular();
    const QString hasta_aqui = resultado.siguen_los_anteriores
                                   ? "Importación detenida. No se grabó nada: "
                                   : "Importación detenida. Lo que ya se había grabado queda: ";
    muestre_mensaje(resultado.cancelada ? hasta_aqui + resultado.resumen() + '.'
                                        : QStringLiteral("Importación finalizada."));
    diga_lo_incompleto(resultado);
    if (!resultado.rechazados.isEmpty())
        muestre_rechazos();
    close();
}

void Tfimportarinv3::diga_lo_incompleto(const ResultadoImportacion& resultado) {
    constexpr int kCaben = 10; // en un mensaje
    QStringList renglones = resultado.avisos.mid(0, kCaben);
    if (const qsizetype mas = resultado.avisos.size() - renglones.size(); mas > 0)
        renglones << QStringLiteral("... y %1 más, en ERRIMPCN.TXT.").arg(mas);
    if (!resultado.cancelada && resultado.siguen_los_anteriores)
        renglones << QStringLiteral("No entró ningún saldo: los que había siguen como estaban.");
    if (!resultado.descuadre().isEmpty())
        renglones << QStringLiteral("Los saldos iniciales quedaron descuadrados por %1: débitos "
                                    "%2, créditos %3.")
                         .arg(resultado.descuadre(), resultado.saldos->first.formateada(),
                              resultado.saldos->second.formateada());
    if (!renglones.isEmpty())
        muestre_mensaje(renglones.join('\n'));
}

void Tfimportarinv3::SBEnsayoClick() {
    const ResultadoImportacion resultado = corra(true);
    muestre_mensaje((resultado.cancelada ? "Ensayo detenido" : "Ensayo terminado") +
                    (": no se grabó nada. " + resultado.resumen()) + '.');
    if (!resultado.rechazados.isEmpty())
        muestre_rechazos();
}

void Tfimportarinv3::error_importacion(const QString& mensaje, const LlaveComprobante& llave) {
    QFile archivo(diraplicacion_callada() + "/ERRIMPCN.TXT");
    const QByteArray renglon =
        (mensaje + "Tipo:" + llave.tipo + "Pref:" + llave.prefijo + "Num:" + llave.numero + '\n')
            .toLatin1();
    if (!archivo.open(QIODevice::Append) || archivo.write(renglon) != renglon.size() ||
        !archivo.flush())
        sin_bitacora_ = archivo.fileName();
}

bool Tfimportarinv3::FormClose() {
    for (ConjuntoDatos* c : {&CImportacion, &CImportar, &CNombres})
        c->Close();
    return true;
}
