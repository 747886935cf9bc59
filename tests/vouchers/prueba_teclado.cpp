// Las manos en el teclado: la diferencia al paso, operaciones en los importes, lo que se completa
// al teclear, copias, borrador, documentos abiertos, pegar y deshacer.
#include "vouchers/digitador.h"

#include "apoyo/monitor.h"
#include "apoyo_gui/anuncio.h"
#include "apoyo_gui/huerfano.h"
#include "catalogues/registro_terceros.h"
#include "ledger/registro.h"
#include "sesion/indices_catalogos.h"
#include "toolkit/controles/lista_sugerencias.h"
#include "toolkit/lista_teclas.h"
#include "vouchers/borrador_vivo.h"
#include "vouchers/letrero_diferencia.h"
#include "vouchers/panel_documento.h"
#include "vouchers/tfbuscomproba.h"

namespace {

ListaSugerencias* sugerencias(SesionGui& s) {
    for (auto* l : s.ventana.findChildren<ListaSugerencias*>())
        if (l->a_la_vista())
            return l;
    return nullptr;
}

QStringList codigos(SesionGui& s) {
    QStringList lista;
    if (const auto* l = sugerencias(s))
        for (int i = 0; i < l->topLevelItemCount(); ++i)
            lista << l->topLevelItem(i)->text(0);
    return lista;
}

/// Fecha y líneas del último comprobante que no es el 500.
QString ultimo_copiado(SesionGui& s, const char* detalle) {
    return s.dato(QString("select enco_fecha || ' ' || (select list(cuen_cod || ':' || "
                          "cast(code_debito as integer) || ':' || cast(code_credito as integer)) "
                          "from %1 d where d.enco_consec = e.enco_consec) from "
                          "comprobante_encabezado e where enco_consec <> 500 order by enco_consec "
                          "desc rows 1")
                      .arg(detalle));
}

/// En el monto del encabezado, con su letrero.
void el_monto_tambien_se_calcula(SesionGui& s, Tfmovimien& p) {
    digite_en(p.DBEdit6, "1250000*19%");
    const auto letreros = s.ventana.findChildren<QLabel*>("resultado_operacion");
    QVERIFY(std::any_of(letreros.begin(), letreros.end(), [](const QLabel* l) {
        return l->isVisible() && l->text() == "= 237,500.00";
    }));
    oprima(Qt::Key_Tab);
    QCOMPARE(p.CMovimiento.FieldByName("ENCO_MONTO").texto(), "237500");
}

/// En la página NIIF Esc quita la lista sin salir de la pantalla, y el tercero del encabezado tiene
/// la suya.
void tambien_se_completa_en_niif_y_en_el_encabezado(SesionGui& s, Digitador& d) {
    Tfmovimien* p = d.p;
    p->PageControl1->setCurrentIndex(1);
    d.entre_a_la_rejilla();
    digite("11");
    QVERIFY(sugerencias(s));
    oprima(Qt::Key_Escape);
    QVERIFY(!sugerencias(s));
    QCOMPARE(s.escritorio.activa(), p);
    QCOMPARE(d.rejilla().texto_digitado(), "11");
    p->Cdetniif.Cancel();
    p->PageControl1->setCurrentIndex(0);
    // El tercero del encabezado también se completa.
    digite_en(p->DBEdit2, "torni");
    QCOMPARE(codigos(s), QStringList({"900123456"}));
    oprima(Qt::Key_Escape);
    QCOMPARE(s.escritorio.activa(), p);
    QCOMPARE(p->DBEdit2->text(), "torni");
    digite("l", Qt::Key_Down, Qt::Key_Return);
    QCOMPARE(p->CMovimiento.FieldByName("ENCO_NOMTERC").texto(), "Ferretería El Tornillo S.A.S.");
    QVERIFY(!p->DBEdit2->hasFocus());
}

/// Nada se escoge solo, y el usuario de una agencia no ve los de las demás si se separan.
void los_centros_se_ofrecen_entre_los_del_proyecto(SesionGui& s, Digitador& d) {
    Tfmovimien* p = d.p;
    d.entre_a_la_rejilla();
    d.linea({"519530", ""});
    digite("adm");
    QCOMPARE(codigos(s), QStringList({"0001"}));
    oprima(Qt::Key_Down);
    tome_foto(&s.ventana, "proyectos");
    oprima(Qt::Key_Return);
    QCOMPARE(d.celda("PROY_COD"), "0001");
    digite("00");
    QCOMPARE(codigos(s), s.dato("select list(cent_cod) from (select cent_cod from centros "
                                "where proy_cod = '0001' order by cent_cod)")
                             .split(','));
    oprima(Qt::Key_Escape);
    QVERIFY(!sugerencias(s));
    QCOMPARE(d.rejilla().texto_digitado(), "00");
    oprima(Qt::Key_Escape);
    digite("contabil"); // más de lo que la celda guarda, para buscar
    QCOMPARE(codigos(s), QStringList({"0002"}));
    oprima(Qt::Key_Down);
    tome_foto(&s.ventana, "centros");
    oprima(Qt::Key_Return);
    QCOMPARE(d.celda("CENT_COD") + p->lineas_2649->NomCent->text(), "0002Contabilidad");
    p->CDetalle.Cancel();
    s.base.ejecute({"update centros set sucu_id = 7 where proy_cod = '0001' and cent_cod = "
                    "'0002'"});
    s.configure("FILTRAR CENTROS DE COSTO POR AGENCIA", "SI");
    s.dm.sucursal_usuario = 2;
    p->DBEdit1->setFocus();
    d.entre_a_la_rejilla();
    d.linea({"519530", "", "0001"});
    digite("contab");
    QVERIFY(codigos(s).isEmpty());
    s.dm.sucursal_usuario = 0;
    p->CDetalle.Cancel();
}

} // namespace

class PruebaTeclado : public QObject {
    Q_OBJECT
private slots:
    void la_diferencia_y_lo_que_da_una_operacion_van_al_paso_de_cada_tecla() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.comience("CG", "05", "x");
        LetreroDiferencia& letrero = *p->lineas_2649->LabDiferencia;
        QVERIFY(letrero.isVisible() && letrero.dice().isEmpty());
        QVERIFY(!p->lineas_2649->Difdeb->isVisible() && !p->lineas_2649->DifCred->isVisible());
        d.entre_a_la_rejilla();
        d.linea({"110505", "", "", "", "", "", "", "", ""});
        digite("2375");
        QCOMPARE(letrero.dice(), "Falta crédito 2,375.00"); // aún sin dejar la celda
        digite("00*2");
        QCOMPARE(letrero.dice(), "Falta crédito 475,000.00");
        oprima(Qt::Key_Escape); // se arrepiente de la celda
        digite("237500");
        d.linea({"", "", ""});
        QCOMPARE(letrero.dice(), "Falta crédito 237,500.00");
        d.linea({"310505", "", "", "", "", "", "", "", "", ""});
        digite("237500");
        QCOMPARE(letrero.dice(), "Cuadrado");
        oprima(Qt::Key_Backspace);
        QCOMPARE(letrero.dice(), "Falta crédito 213,750.00");
        QCOMPARE(p->lineas_2649->SumCred->text(), "23,750.00"); // las sumas van con ella
        oprima(Qt::Key_Escape);
        oprima(Qt::Key_Escape); // y de la línea
        QCOMPARE(letrero.dice(), "Falta crédito 237,500.00");
        // Corregir una línea que ya entró no la cuenta dos veces.
        d.rejilla().SelectedIndex(LineasLibro::kDebito);
        digite("100");
        QCOMPARE(letrero.dice(), "Falta crédito 100.00");
        oprima_seguidas({Qt::Key_Escape, Qt::Key_Escape});
        // Cada libro lleva la suya.
        QVERIFY(p->lineas_niif->LabDiferencia->dice().isEmpty());
        // Lo que da una operación se ve antes de tomarlo.
        d.rejilla().SelectedIndex(LineasLibro::kDebito);
        digite("1250000*0.2");
        auto* muestra = s.ventana.findChild<QLabel*>("resultado_operacion");
        QVERIFY(muestra && muestra->isVisible());
        QCOMPARE(muestra->text(), "= 250,000.00");
        tome_foto(&s.ventana, "operacion");
        oprima(Qt::Key_Return);
        QVERIFY(!muestra->isVisible());
        QCOMPARE(d.celda("CODE_DEBITO"), "250000");
        // Lo que no se puede calcular deja la celda abierta con lo digitado.
        d.rejilla().SelectedIndex(LineasLibro::kDebito);
        digite("100/0");
        QCOMPARE(muestra->text(), "= …");
        dice(Qt::Key_Return,
             "Se presento el siguiente error: '100/0' no se puede calcular: no se puede "
             "dividir por cero.");
        QCOMPARE(d.rejilla().texto_digitado(), "100/0");
        oprima(Qt::Key_Escape);
        QCOMPARE(d.celda("CODE_DEBITO"), "250000");
        // En un porcentaje "%" no es nada: quien digita 19 quiere 19.
        d.rejilla().SelectedIndex(LineasLibro::kPorcentaje);
        dice([&] { digite("19%", Qt::Key_Return); },
             "Se presento el siguiente error: '19%' no es un número para Porc.");
        oprima(Qt::Key_Escape);
        p->CDetalle.Cancel();
        el_monto_tambien_se_calcula(s, *p);
        p->CMovimiento.CancelUpdates();
    }

    void cuentas_y_terceros_se_completan_sin_escoger_por_nadie() {
        Empezado e("CG", "05", "x");
        auto& [s, d, p] = e;
        digite("11");
        QCOMPARE(codigos(s), QStringList({"110505", "111005"})); // la inactiva y las mayores no
        // Enter sin señalar nada deja lo tecleado.
        digite("1005");
        QVERIFY(!sugerencias(s)); // ya no hay nada que completar
        oprima(Qt::Key_Return);
        QCOMPARE(d.celda("CUEN_COD"), "111005");
        // Palabras del nombre, sin tildes; Abajo señala y Enter toma y sigue.
        d.rejilla().SelectedIndex(0);
        digite("utiles fotoc");
        QCOMPARE(codigos(s), QStringList({"519530"}));
        QVERIFY(!sugerencias(s)->senalada());
        oprima(Qt::Key_Down);
        tome_foto(&s.ventana, "sugerencias");
        QVERIFY(d.rejilla().digitando());
        oprima(Qt::Key_Return);
        QCOMPARE(d.celda("CUEN_COD"), "519530");
        QCOMPARE(d.rejilla().SelectedIndex(), 1);
        // Esc quita la lista y deja lo tecleado; otra vez, la celda.
        d.rejilla().SelectedIndex(0);
        d.linea({"510506"});
        digite("andina");
        QCOMPARE(codigos(s), QStringList({"800456789"}));
        oprima(Qt::Key_Escape);
        QVERIFY(!sugerencias(s));
        QCOMPARE(d.rejilla().texto_digitado(), "andina");
        oprima(Qt::Key_Escape);
        QVERIFY(!d.rejilla().digitando());
        QCOMPARE(s.escritorio.activa(), p);
        // "?" conserva su significado.
        digite("?andina");
        QVERIFY(!sugerencias(s));
        oprima(Qt::Key_Escape);
        p->CDetalle.Cancel();
        // Uno que otro usuario acaba de crear aparece al volver a las líneas.
        s.base.ejecute({"insert into terceros (terc_nit, terc_nom, terc_estado) values "
                        "('811000111', 'Andamios del Sur', 'S')"});
        p->DBEdit1->setFocus();
        d.entre_a_la_rejilla();
        d.linea({"510506"});
        digite("and");
        QCOMPARE(codigos(s), QStringList({"800456789", "811000111"}));
        oprima_seguidas({Qt::Key_Escape, Qt::Key_Escape});
        p->CDetalle.Cancel();
        // Sin cambios, volver no mira los catálogos.
        const auto vuelva = [&] {
            const qint64 antes = registros_leidos(fdm().Quorvex);
            IndicesCatalogos::de_la_sesion().refresque(Libro::Decreto2649);
            return registros_leidos(fdm().Quorvex) - antes;
        };
        (void)vuelva();
        const qint64 de_mas = vuelva();
        QVERIFY2(de_mas < s.dato("select count(*) from terceros").toInt(),
                 qPrintable(QString::number(de_mas)));
        tambien_se_completa_en_niif_y_en_el_encabezado(s, d);
        los_centros_se_ofrecen_entre_los_del_proyecto(s, d);
        // Y "?" pregunta también en el proyecto.
        ListaFalsa<PideCentro> centros("Tfcentros");
        d.entre_a_la_rejilla();
        d.linea({"519530", "", "?"});
        QCOMPARE(centros.veces(), 1);
        centros.conteste({"0001", "0001"});
        QCOMPARE(d.celda("PROY_COD") + d.celda("CENT_COD"), "00010001");
        p->CMovimiento.CancelUpdates();
    }

    void duplicar_y_reversar_desde_editar_buscar_y_el_auxiliar() {
        const RelojDetenido hoy({2017, 5, 15});
        SesionGui s("AUXILIAR");
        Digitador d(s);
        registre_pantallas_consulta();
        ponga_comprobante(s, 500, "000500", "20170210", {"110505:1000:0", "310505:0:1000"});
        ponga_comprobante(s, 500, "000500", "20170210", {"110505:900:0", "310505:0:900"},
                          "comprobante_detalle_niif");
        const QString nuevo_hoy = "Se grabará un comprobante nuevo con la fecha de hoy, "
                                  "2017/05/15, que %1 en los dos libros CG 0001 000500. Desea "
                                  "continuar?";
        const QString reversa = nuevo_hoy.arg("reversa"), repite = nuevo_hoy.arg("repite");
        const auto cuantos = [&] { return s.dato("select count(*) from comprobante_encabezado"); };
        Interlocutor i;
        auto* e = s.abra<Tfedtmovimien>("Tfedtmovimien", AbreComprobante{"500"});
        // "No" es lo propuesto, y no deja nada.
        i.espere(reversa, "No");
        oprima(Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(cuantos(), "1");
        i.espere(reversa, "Sí");
        oprima(Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(cuantos(), "2");
        QCOMPARE(ultimo_copiado(s, "comprobante_detalle"), "20170515 110505:0:1000,310505:1000:0");
        QCOMPARE(ultimo_copiado(s, "comprobante_detalle_niif"),
                 "20170515 110505:0:900,310505:900:0");
        // El nuevo queda abierto para corregirlo.
        auto* nuevo = qobject_cast<Tfedtmovimien*>(s.escritorio.activa());
        QVERIFY(nuevo && nuevo != e);
        QCOMPARE(nuevo->CMovimiento.FieldByName("ENCO_REFER").texto(), QString("000500"));
        nuevo->close();
        // Lo que no se ha grabado no se copia a medias.
        s.escritorio.active(e);
        digite_en(e->DBEdit1, "otro");
        i.espere("Grabe primero los cambios: se copia el comprobante como está grabado.");
        oprima(Qt::Key_D, Qt::ControlModifier);
        e->CMovimiento.CancelUpdates();
        e->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // Buscar.
        auto* b = s.abra<Tfbuscomproba>("Tfbuscomproba");
        componente<QLineEdit>(b, "TNum").setText("000500");
        componente<QLineEdit>(b, "FecIni").clear();
        componente<QLineEdit>(b, "FecFin").clear();
        componente<QPushButton>(b, "BitBtn1").click();
        i.espere(repite, "Sí");
        b->DBGridEh1->conjunto()->Locate("ENCO_CONSEC", {500});
        b->DBGridEh1->setFocus();
        oprima(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(cuantos(), "3");
        QCOMPARE(ultimo_copiado(s, "comprobante_detalle"), "20170515 110505:1000:0,310505:0:1000");
        QVERIFY(s.escritorio.activa() != b && s.escritorio.activa()->close());
        b->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // El auxiliar, en el período del original.
        s.cnt.periodo_actual = 1;
        Pantalla* a = pantallas().abrir("Tfauxiliar", AbreAuxiliar{"110505"});
        i.espere(reversa, "Sí");
        a->findChild<Rejilla*>("DBGridEh1")->setFocus();
        oprima(Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(cuantos(), "4");
        // Sin el derecho de crear no se copia.
        s.niegue(30);
        i.espere(kAccesoNegado);
        oprima(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(cuantos(), "4");
    }

    void el_borrador_de_un_programa_muerto_se_ofrece_una_vez() {
        SesionGui s;
        Digitador d(s);
        const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
        Tfmovimien* p = d.abra();
        const QDir carpeta(p->findChild<BorradorVivo*>()->carpeta());
        p->close();
        // El que no se entiende se dice y queda aparte; del vacío no hay qué decir.
        QVERIFY(QDir().mkpath(carpeta.path()));
        for (const char* contenido : {"", "{\"version\":1}"}) {
            QFile roto(carpeta.filePath(QString("roto%1.borrador").arg(strlen(contenido))));
            QVERIFY(roto.open(QIODevice::WriteOnly) && roto.write(contenido) >= 0);
        }
        Interlocutor i;
        i.espere("Lo que quedó sin grabar lo guardó otra versión del programa, y esta no lo puede "
                 "leer. El archivo queda aparte: " +
                 carpeta.filePath("roto13.borrador.ilegible"));
        p = d.abra();
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(carpeta.entryList({"roto*"}, QDir::Files),
                 QStringList({"roto13.borrador.ilegible"}));
        auto* borrador = p->findChild<BorradorVivo*>();
        const auto hay = [&] { return borrador->guarde(), borradores(carpeta).size(); };
        QCOMPARE(hay(), 0); // nada se ha digitado
        d.redigite(p->ERef, "R-1");
        QCOMPARE(hay(), 1);
        d.encabezado("CG", "17", "Nómina de mayo");
        d.entre_a_la_rejilla();
        d.linea({"110505", "", "", "", "", "", "", "", "", "1000", "", ""});
        d.linea({"310505", "", "", "", "", "", "", "", "", "", "400"}); // sin entrar aún
        // Otra pantalla del mismo usuario no toca el de la que sigue viva.
        QVERIFY(!BorradorVivo(
                     p->conjuntos(), s.dm.Quorvex.parametros().base + "/ADMIN",
                     [] { return QString(); }, nullptr)
                     .tome_huerfano());
        deje_huerfano(*borrador); // el programa muere
        QCOMPARE(s.dato("select count(*) from comprobante_encabezado"), "0");
        {
            const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
            QVERIFY(p->close());
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(borradores(carpeta),
                 QStringList({"huerfano.borrador"})); // el que se dejó ya no está
        const RelojDetenido media_hora_despues({2017, 5, 15}, {10, 30});
        s.cnt.periodo_actual = 3; // entre tanto se trabajó en otro mes
        i.espere("Hace 30 minutos quedó un comprobante sin grabar: CG 0001, «Nómina de mayo», 2 "
                 "líneas. Es de Enero de 2017 y se sigue en ese período. Desea retomarlo?",
                 "Sí");
        p = d.abra();
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QVERIFY(borradores(carpeta).isEmpty());
        QCOMPARE(p->EDia->text(), "17");
        QCOMPARE(p->CDetalle.RecordCount(), 2);
        QCOMPARE(p->lineas_2649->LabDiferencia->dice(), "Falta crédito 600.00");
        // Sigue donde iba: Abajo abre la que sigue; se completa y se graba, con su número y sus
        // ítems.
        QTRY_COMPARE(p->focusWidget(), &d.rejilla());
        QCOMPARE(p->CDetalle.RecNo(), 1);
        oprima_en(&d.rejilla(), Qt::Key_Down);
        d.linea({"310505"});
        oprima_seguidas({Qt::Key_F5, Qt::Key_F2});
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(s.dato("select enco_numero || ' ' || enco_fecha || ' ' || enco_concepto || ' ' || "
                        "(select list(code_item || ':' || cast(code_credito as integer)) from "
                        "comprobante_detalle) from comprobante_encabezado"),
                 "000001 20170117 Nómina de mayo 1:0,2:400,3:600");
        p->findChild<BorradorVivo*>()->guarde();
        QVERIFY(borradores(carpeta).isEmpty());
    }

    void lo_que_se_corregia_en_uno_grabado_se_ofrece_al_volver_a_abrirlo() {
        SesionGui s;
        Digitador d(s);
        const RelojDetenido a_las_diez({2017, 5, 15}, {10, 0});
        ponga_comprobante(s, 500, "000500", "20170210", {"110505:1000:0", "310505:0:1000"});
        const auto abra = [&] {
            return s.abra<Tfedtmovimien>("Tfedtmovimien", AbreComprobante{"500"});
        };
        const auto muera_corrigiendo = [&](const QString& concepto) {
            Tfedtmovimien* e = abra();
            auto* borrador = e->findChild<BorradorVivo*>();
            borrador->guarde();
            const bool sin_cambios = borradores(borrador->carpeta()).isEmpty();
            e->DBEdit1->setFocus();
            e->DBEdit1->selectAll();
            digite(concepto);
            e->lineas_2649->rejilla->setFocus();
            e->lineas_2649->rejilla->SelectedIndex(LineasLibro::kDebito);
            digite("1200", Qt::Key_Return);
            const QDir carpeta = deje_huerfano(*borrador);
            const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
            return e->close() && sin_cambios && borradores(carpeta).size() == 1;
        };
        const QString ofrece = "Hace un momento quedaron cambios sin grabar en este comprobante. ";
        Interlocutor i;
        QVERIFY(muera_corrigiendo("Corregido"));
        i.espere(ofrece + "Desea retomarlos?", "Sí");
        Tfedtmovimien* e = abra();
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(e->DBEdit1->text(), "Corregido");
        QCOMPARE(e->lineas_2649->LabDiferencia->dice(), "Falta crédito 200.00");
        e->CMovimiento.CancelUpdates();
        e->close();
        // Si entre tanto alguien lo grabó, lo dice, y "No" es lo propuesto.
        QVERIFY(muera_corrigiendo("Otra vez"));
        s.base.ejecute({"update comprobante_encabezado set enco_concepto = 'De otro'"});
        i.espere(ofrece + "Después de eso se grabó con otros, que se perderían. Desea retomarlos?",
                 "No");
        e = abra();
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(e->DBEdit1->text(), "De otro");
        e->CMovimiento.CancelUpdates();
    }

    void aplica_a_ofrece_los_documentos_abiertos_del_tercero() {
        const RelojDetenido hoy({2017, 5, 15});
        SesionGui s;
        Digitador d(s);
        ponga_comprobante(s, 500, "000500", "20170210", {"110505:1000:0", "220505:0:1000"});
        s.base.ejecute({"update comprobante_detalle set terc_nit = '800456789', cnde_docnumero = "
                        "'F-10', code_tiponue = 11, doco_vence = '20170312' where cuen_cod = "
                        "'220505'"});
        Tfmovimien* p = d.comience("CG", "05", "Pago");
        digite_en(p->DBEdit2, "800456789", Qt::Key_Tab);
        d.entre_a_la_rejilla();
        d.linea({"220505"}); // toma el tercero del encabezado y abre su panel
        QVERIFY(p->GroupBox1->isVisible());
        componente<EditorDato>(p, "EAplica").setFocus(Qt::TabFocusReason);
        QCOMPARE(codigos(s), QStringList({"F-10"}));
        tome_foto(&s.ventana, "documentos");
        const QString dice = sugerencias(s)->topLevelItem(0)->text(1);
        QVERIFY2(dice.startsWith("se debe 1,000.00 · ") &&
                     dice.endsWith("220505 · vence 2017/03/12"),
                 qPrintable(dice));
        oprima_seguidas({Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(d.celda("CNDE_DOCAPLICA") + ' ' + d.celda("CODE_TIPOAPL") + ' ' +
                     d.celda("DOCO_VENCE"),
                 "F-10 11 20170312");
        // Esc cierra el panel y no la pantalla.
        QVERIFY(p->GroupBox1->isVisible());
        oprima(Qt::Key_Escape);
        QVERIFY(!p->GroupBox1->isVisible());
        QCOMPARE(s.escritorio.activa(), p);
        QVERIFY(d.rejilla().enfocada());
        p->CMovimiento.CancelUpdates();
    }

    void pegar_dice_lo_que_hara_y_se_deshace_una_vez_como_la_plantilla() {
        SesionGui s;
        Digitador d(s);
        s.base.ejecute({"insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, "
                        "plan_concepto) values (1, 'CG', '0001', 'Arriendo')",
                        "insert into plantilla_detalle (plan_id, plde_item, cuen_cod, "
                        "plde_debitos, plde_creditos) values (1, 1, '110505', 5, 0)"});
        Tfmovimien* p = d.abra("CG", "05", "");
        d.linea({"111005", "", "", "", "propia", "", "", "", "", "7", "", ""});
        QApplication::clipboard()->setText("Código\tNIT\n110505\t\n999999\t\n310505\t123");
        Interlocutor i;
        QStringList rehusadas, columnas;
        conteste_anuncio(i, "Cancelar", &rehusadas, &columnas);
        oprima(Qt::Key_V, Qt::ControlModifier);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        QCOMPARE(columnas, QStringList({"Columna 1: Código", "Columna 2: Tercero"}));
        QCOMPARE(rehusadas.size(), 3); // el título, la cuenta y el tercero que no existen
        QVERIFY2(rehusadas[1].contains("(999999)"), qPrintable(rehusadas.join(" / ")));
        QCOMPARE(p->CDetalle.filas_en_memoria(), 2); // la propia y la que está en blanco
        conteste_anuncio(i, "Pegar las demás (1)");
        oprima(Qt::Key_V, Qt::ControlModifier);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        p->CDetalle.First();
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD"), QStringList({"111005", "110505"}));
        // Un paso atrás, una sola vez.
        oprima(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD"), QStringList({"111005"}));
        QCOMPARE(p->lineas_2649->LabDiferencia->dice(), "Falta crédito 7.00");
        oprima(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD"), QStringList({"111005"}));
        // Con algo más digitado después, lo pregunta.
        p->CDetalle.Last();
        oprima(Qt::Key_Down);
        d.rejilla().SelectedIndex(0);
        QApplication::clipboard()->setText("110505\t\t\t\tUno\n310505\t\t\t\tDos");
        conteste_anuncio(i, "Pegar");
        oprima(Qt::Key_V, Qt::ControlModifier);
        p->CDetalle.First();
        d.rejilla().SelectedIndex(LineasLibro::kConcepto);
        d.linea({"cambiado"});
        dice([&] { oprima(Qt::Key_Z, Qt::ControlModifier); },
             "Después de lo pegado hubo otros cambios, que también se perderán. Desea "
             "deshacerlo?",
             "No");
        QCOMPARE(p->CDetalle.RecordCount(), 3);
        // Una sola celda no se anuncia, y en una celda abierta Ctrl+V y Ctrl+Z son de su texto.
        QApplication::clipboard()->setText("solo");
        d.rejilla().SelectedIndex(LineasLibro::kConcepto);
        oprima(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(d.celda("CODE_CONCEPTO"), "solo");
        // La plantilla reemplaza todo, y también se deshace.
        ListaFalsa<PidePlantilla> plantillas("Tfbuscplantilla");
        const QStringList antes = valores_de(p->CDetalle, "CUEN_COD");
        i.espere(kTraePlantilla, "Sí");
        oprima(Qt::Key_F11);
        plantillas.conteste("1");
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD"), QStringList({"110505"}));
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_CONCEPTO").texto(), "Arriendo");
        d.rejilla().setFocus();
        oprima(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(valores_de(p->CDetalle, "CUEN_COD"), antes);
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_CONCEPTO").texto(), QString());
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        p->CMovimiento.CancelUpdates();
    }

    void f1_dice_las_teclas_y_ctrl_e_va_y_vuelve() {
        SesionGui s;
        Digitador d(s);
        Tfmovimien* p = d.abra();
        Interlocutor i;
        QStringList teclas;
        i.espere_modal("teclas_de_pantalla", [&](QWidget* w) {
            tome_foto(w, "teclas");
            auto& t = componente<QTreeWidget>(w, "tabla_teclas");
            for (int f = 0; f < t.topLevelItemCount(); ++f)
                teclas << t.topLevelItem(f)->text(0) + ": " + t.topLevelItem(f)->text(1);
            QTest::keyClick(&t, Qt::Key_Escape);
        });
        oprima(Qt::Key_F1);
        QVERIFY2(i.conforme(), qPrintable(i.queja()));
        for (const char* t :
             {"F2: Grabar", "F5: Proponer el valor que cuadra", "F6: Buscar terceros",
              "Alt+Izquierda: Mes anterior", "Ctrl+E: Pasar del encabezado a las líneas o volver"})
            QVERIFY2(teclas.contains(t), qPrintable(teclas.join("; ")));
        digite_en(p->ERef, "R1");
        oprima(Qt::Key_E, Qt::ControlModifier);
        QVERIFY(d.rejilla().enfocada());
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_REFER").texto(), QString("R1"));
        oprima(Qt::Key_E, Qt::ControlModifier);
        QVERIFY(p->ERef->hasFocus());
        // En observaciones Enter sigue la regla de la pantalla; Ctrl+Enter hace renglón.
        digite_en(p->DBMemo1, "uno");
        oprima(Qt::Key_Return, Qt::ControlModifier);
        digite("dos", Qt::Key_Return);
        QVERIFY(!p->DBMemo1->hasFocus());
        QCOMPARE(p->CMovimiento.FieldByName("ENCO_OBS").texto(), "uno\ndos");
    }
};

QTEST_MAIN(PruebaTeclado)
#include "prueba_teclado.moc"
