#include "assets/tfcalculadep.h"

#include "assets/pch.h"
#include "assets/procesos_activos.h"
#include "toolkit/marcos.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

Tfcalculadep::Tfcalculadep()
    : FormaProceso(depreciacion(), SinArmar{}),
      TDepunidad(this, "TDepunidad", fdm().Quorvex,
                 "SELECT * FROM DEPRECIACION_UNIDADES WHERE DEPR_ID = :DEPR_ID"),
      QActivos(this, "QActivos", fdm().Quorvex, "select acfj_cod, acfj_desc from activos_fijos"),
      PActivos(this, "PActivos", &QActivos), CDepunidad(this, "CDepunidad"),
      CActivos(this, "CActivos", &PActivos) {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    TDepunidad.enlace_maestra(&QProceso, {"DEPR_ID"});
    PProceso.Options = poCascadeDeletes | poCascadeUpdates;
    CDepunidad.anide_en(&CProceso, &TDepunidad);
    CActivos.texto("ACFJ_COD", 15);
    CActivos.texto("ACFJ_DESC", 60);
    CDepunidad.entero("DEPR_ID").banderas(kLlave);
    CDepunidad.entero("DEPU_ITEM").banderas(kLlave);
    CDepunidad.texto("ACFJ_COD", 15);
    CDepunidad.entero("DEPU_UNIDADES").etiqueta("Unidades u horas");
    CDepunidad.busqueda("NomActivo", 60, "ACFJ_COD", &CActivos, "ACFJ_COD", "ACFJ_DESC");
    CDepunidad.interno("Ultfec", ClaseCampo::Texto, 8);
    CDepunidad.interno("Unirest", ClaseCampo::Entero, 0);
    CDepunidad.interno("Porlibro", ClaseCampo::Texto, 40);
    CDepunidad.BeforePost = [this] { CDepunidadBeforePost(); };

    DBGridEh1 = new Rejilla(this, &CDepunidad);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Unidades u horas producidas en el mes");
    DBGridEh1->columnas({{"ACFJ_COD", "Activo", 12, SoloLectura},
                         {"NomActivo", "Descripción", 34, SoloLectura},
                         {"Ultfec", "Última", 11, SoloLectura, "aaaa/mm/dd"},
                         {"Unirest", "Restan", 10, SoloLectura},
                         {"DEPU_UNIDADES", "Unidades/horas", 14},
                         {"Porlibro", "Restan en cada libro", 26, SoloLectura}});
    DBGridEh1->permite_insertar = DBGridEh1->permite_borrar = false;
    arme();
    tamano(900, 420);
}

void Tfcalculadep::bajo_el_encabezado(Formulario& f) {
    Panel2 = new QWidget(this);
    Panel2->setObjectName("Panel2");
    Formulario g(Panel2);
    g.ancha(new QLabel("Digite las unidades u horas que cada activo produjo en el mes y oprima "
                       "Continuar."),
            0)
        .ancha(DBGridEh1);
    f.ancha(Panel2);
    Panel2->hide();
    f.estire();
}

void Tfcalculadep::botones_propios(BarraBotones& barra) {
    SpeedButton3 = barra.boton("SpeedButton3", "Continuar", "go-next", QKeySequence(),
                               [this] { SpeedButton3Click(); });
    SpeedButton3->hide();
}

void Tfcalculadep::FormCreate() {
    FormaProceso::FormCreate();
    CActivos.Open();
}

void Tfcalculadep::SBGrabarClick() {
    if (Panel2->isVisible())
        SpeedButton3Click();
    else if (!pida_unidades())
        grabe();
}

QHash<QString, QString> Tfcalculadep::restan_en_cada_libro() {
    QHash<QString, QString> distintas;
    const auto c = fdm().Quorvex.abra(
        "select * from (select a.acfj_cod, maxvalue(a.acfj_mesdep - coalesce(sum(iif(d.dede_libro ="
        " '2649', d.dede_unidades, 0)), 0), 0) l, maxvalue(a.acfj_depniif - coalesce(sum(iif("
        "d.dede_libro = 'NIIF', d.dede_unidades, 0)), 0), 0) n from activos_fijos a left join "
        "depreciacion_detalle d on d.acfj_cod = a.acfj_cod and d.dede_clase in ('D', 'I') where "
        "a.acfj_mesdep > 0 and a.acfj_depniif > 0 group by a.acfj_cod, a.acfj_mesdep, "
        "a.acfj_depniif) where l <> n");
    while (c->siguiente())
        distintas[c->valor(0).texto()] =
            QStringLiteral("Local %1, NIIF %2").arg(c->valor(1).entero()).arg(c->valor(2).entero());
    return distintas;
}

void Tfcalculadep::liste_los_que_producen() {
    QMap<QString, Valor> digitadas; // de un intento anterior
    CDepunidad.recorra_todas([&](const Fila& fila) {
        digitadas[CDepunidad.valor_de(fila, CDepunidad.FieldByName("ACFJ_COD")).texto()] =
            CDepunidad.valor_de(fila, CDepunidad.FieldByName("DEPU_UNIDADES"));
    });
    const QHash<QString, QString> por_libro = restan_en_cada_libro();
    bool difieren = false;
    const QScopedValueRollback<bool> guarda(llenando_, true);
    CDepunidad.DisableControls();
    const auto encienda = qScopeGuard([this] { CDepunidad.EnableControls(); });
    CDepunidad.borre_todas();
    Sentencia& q = fdm().QBorrar;
    const auto cierre = qScopeGuard([&q] { q.Close(); });
    q.Open("select activo, fecult, unirest from ultima_depreciacion_unidades(" +
           QuotedStr(fecha_pedida_) + ')');
    for (int item = 1; !q.Eof(); q.Next(), ++item) {
        CDepunidad.Append();
        CDepunidad.FieldByName("DEPR_ID") = 0;
        CDepunidad.FieldByName("DEPU_ITEM") = item;
        CDepunidad.FieldByName("ACFJ_COD") = q.Fields(0);
        CDepunidad.FieldByName("DEPU_UNIDADES") = digitadas.value(q.Fields(0).texto(), Valor(0));
        CDepunidad.FieldByName("Ultfec") = q.Fields(1);
        CDepunidad.FieldByName("Unirest") = q.Fields(2);
        CDepunidad.FieldByName("Porlibro") = por_libro.value(q.Fields(0).texto());
        difieren = difieren || por_libro.contains(q.Fields(0).texto());
        CDepunidad.Post();
    }
    DBGridEh1->columna(DBGridEh1->columna_de("Porlibro")).Visible = difieren;
    if (!CDepunidad.IsEmpty())
        CDepunidad.First();
}

bool Tfcalculadep::pida_unidades() {
    ponga_fecha();
    postee(); // lo que falte del encabezado se dice antes de pedir las unidades
    CProceso.Edit();
    fecha_pedida_ = campo("DEPR_FECHA").texto();
    liste_los_que_producen();
    Panel2->setVisible(!CDepunidad.IsEmpty());
    SpeedButton3->setVisible(!CDepunidad.IsEmpty());
    if (CDepunidad.IsEmpty())
        return false;
    Panel1->hide();
    reajuste_ventana(*this);
    DBGridEh1->setFocus();
    DBGridEh1->SelectedIndex(DBGridEh1->columna_de("DEPU_UNIDADES"));
    return true;
}

void Tfcalculadep::CDepunidadBeforePost() {
    if (llenando_ || CDepunidad.FieldByName("DEPU_UNIDADES").entero() > 0)
        return;
    muestre_mensaje("Debe indicar el número de unidades/horas producidas.");
    throw EdicionAbortada();
}

void Tfcalculadep::SpeedButton3Click() {
    CDepunidad.CheckBrowseMode();
    // De vuelta en el encabezado se pudo cambiar el día: los que producen son los de esa fecha.
    ponga_fecha();
    if (campo("DEPR_FECHA").texto() != fecha_pedida_ && pida_unidades())
        return;
    if (!acepte_las_que_no_produjeron() || !acepte_las_que_pasan())
        return;
    // Si la base rehúsa, lo que haya que corregir puede estar en el encabezado.
    const auto vuelva = qScopeGuard([this] {
        if (!CProceso.Active())
            return; // quedó hecha
        Panel1->show();
        reajuste_ventana(*this);
    });
    grabe();
}

bool Tfcalculadep::acepte_las_que_no_produjeron() {
    const Campo& unidades = CDepunidad.FieldByName("DEPU_UNIDADES");
    QVector<int> paradas;
    for (int i = CDepunidad.RecordCount() - 1; i >= 0; --i)
        if (CDepunidad.valor_en(i, unidades).entero() == 0)
            paradas << i;
    if (paradas.isEmpty())
        return true;
    const QString cuantos =
        paradas.size() == 1
            ? "El activo " +
                  CDepunidad.valor_en(paradas[0], CDepunidad.FieldByName("ACFJ_COD")).texto() +
                  " queda"
            : QString::number(paradas.size()) + " activos quedan";
    if (!pregunte_con_no(cuantos + " sin unidades u horas producidas, y este mes no se deprecia" +
                         (paradas.size() == 1 ? "" : "n") + ". Desea continuar?")) {
        CDepunidad.vaya_a(paradas.last());
        DBGridEh1->setFocus();
        return false;
    }
    return true; // se graban en cero: si la base rehúsa, siguen ahí para digitarlas
}

bool Tfcalculadep::acepte_las_que_pasan() {
    const Campo& unidades = CDepunidad.FieldByName("DEPU_UNIDADES");
    const Campo& restan = CDepunidad.FieldByName("Unirest");
    for (int i = 0; i < CDepunidad.RecordCount(); ++i) {
        const auto producidas = CDepunidad.valor_en(i, unidades).entero();
        const auto quedan = CDepunidad.valor_en(i, restan).entero();
        if (producidas <= quedan ||
            pregunte_con_no(
                QStringLiteral("El activo %1 produjo %2 unidades u horas y solo le restan %3: "
                               "queda depreciado del todo. Desea continuar?")
                    .arg(CDepunidad.valor_en(i, CDepunidad.FieldByName("ACFJ_COD")).texto())
                    .arg(producidas)
                    .arg(quedan)))
            continue;
        CDepunidad.vaya_a(i);
        DBGridEh1->setFocus();
        return false;
    }
    return true;
}
