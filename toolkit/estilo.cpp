#include "toolkit/estilo.h"

#include "toolkit/aire.h"
#include "toolkit/consejo.h"
#include "toolkit/controles/pegado_en_linea.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/textos_qt.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFocusEvent>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QIconEngine>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QPainter>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTranslator>
#include <QWidget>
#include <QtMath>

namespace {
ColoresEmpresa colores_;

constexpr qreal kPixelesLetra = 12.0; ///< letra de 9 puntos a 96 puntos por pulgada
constexpr int kPuntosMinimos = 9;
constexpr int kMargenTitulo = 2; ///< sobre y bajo el título de una columna
/// Foco, selección y enlaces. Son del programa: los de la empresa podrían no dejarse leer.
const QColor kAcento(0x2b, 0x5c, 0x8a), kAcentoOscuro(0x4d, 0x93, 0xd0);
const QColor kLineaOscura(0x3f, 0x47, 0x4f);   ///< entre las celdas: la de Fusion no se ve
const QColor kHojaOscura(0x23, 0x27, 0x2b);    ///< las hojas con pestaña, como la ventana
const QColor kPestanaOscura(0x16, 0x19, 0x1c); ///< la de la que no se ve

bool oscuro_ = false; ///< el sistema pide letras claras sobre fondo oscuro

QColor segun(const QColor& claro, const QColor& oscuro) {
    return oscuro_ ? oscuro : claro;
}

/// Lo que no se puede cambiar se ve distinto antes de intentarlo.
QColor fondo_fijo() {
    return segun({0xe9, 0xed, 0xf1}, {0x34, 0x3b, 0x42});
}

constexpr const char* kTextoCortado = "texto_cortado"; ///< el que una lista no muestra entero

/// Una caja que no se está digitando muestra el comienzo de su texto, y completo en su consejo si
/// no cabe. Una lista, también.
class LectorDeCajas : public QObject {
public:
    using QObject::QObject;
    void atienda(QLineEdit* caja) {
        // Las de fechas y listas mueven su cursor por secciones; a la de una celda el texto le
        // llega antes que el foco, y se sigue digitando al final.
        if (caja->inherits("EditorCelda") ||
            qobject_cast<QAbstractSpinBox*>(caja->parentWidget()) ||
            qobject_cast<QComboBox*>(caja->parentWidget()) ||
            caja->property("lector").value<QObject*>() == this)
            return;
        caja->setProperty("lector", QVariant::fromValue<QObject*>(this));
        caja->installEventFilter(this);
        if (caja->isReadOnly())
            caja->home(false);
        connect(caja, &QLineEdit::textChanged, this, [caja] {
            if (caja->isReadOnly() && !caja->hasFocus())
                caja->home(false);
            // En una fila de nombres el ancho se reparte según lo que dicen.
            const QWidget* fila = caja->parentWidget();
            if (caja->isReadOnly() && fila && !cabe(caja) && fila->layout())
                caja->updateGeometry();
        });
    }

    void atienda(QComboBox* lista) {
        lista->removeEventFilter(this); // se pule otra vez al cambiar el tema
        lista->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (auto* lista = qobject_cast<QComboBox*>(objeto); lista)
            return evento->type() == QEvent::ToolTip && aconseje(*lista, evento);
        auto* caja = qobject_cast<QLineEdit*>(objeto);
        if (!caja)
            return false;
        if (evento->type() == QEvent::FocusOut && se_va(*static_cast<QFocusEvent*>(evento)))
            caja->setCursorPosition(0);
        // Su disposición pudo darle el ancho después de que le llegó el texto.
        const bool se_acomoda = evento->type() == QEvent::Show || evento->type() == QEvent::Resize;
        if (se_acomoda && caja->isReadOnly() && !caja->hasFocus())
            caja->home(false);
        if (evento->type() == QEvent::FocusIn)
            QMetaObject::invokeMethod(
                caja, [caja] { empiece_por_el_comienzo(caja); }, Qt::QueuedConnection);
        if (evento->type() == QEvent::Paint && !caja->hasFocus() && caja->cursorPosition() == 0 &&
            caja->inputMask().isEmpty() && caja->echoMode() == QLineEdit::Normal) {
            caja->event(evento);
            diga_que_sigue(*caja);
            return true;
        }
        if (evento->type() != QEvent::ToolTip || caja->echoMode() != QLineEdit::Normal ||
            cabe(caja))
            return false;
        muestre_consejo(evento, con_su_ayuda(caja->text(), *caja), caja);
        return true;
    }

private:
    /// El texto cortado y, si la caja tiene su propio consejo, también.
    static QString con_su_ayuda(const QString& texto, const QWidget& caja) {
        const QString ayuda = caja.toolTip();
        return ayuda.isEmpty() || ayuda == texto ? texto : texto + QStringLiteral("\n\n") + ayuda;
    }
    static bool aconseje(QComboBox& lista, QEvent* evento) {
        const QLineEdit* caja = lista.lineEdit();
        const QString cortado = !caja        ? lista.property(kTextoCortado).toString()
                                : cabe(caja) ? QString()
                                             : caja->text();
        if (cortado.isEmpty())
            return false;
        muestre_consejo(evento, con_su_ayuda(cortado, lista), &lista);
        return true;
    }
    static bool cabe(const QLineEdit* caja) {
        const QFontMetrics medidas = caja->fontMetrics();
        return medidas.horizontalAdvance(caja->text()) <=
               caja->contentsRect().width() - 2 * medidas.averageCharWidth();
    }
    /// Lo que no cabe se ve que sigue.
    static void diga_que_sigue(QLineEdit& caja) {
        constexpr int kMargen = 2; // el que Qt deja al texto
        QStyleOptionFrame opcion;
        opcion.initFrom(&caja);
        opcion.lineWidth = caja.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &opcion, &caja);
        const QRect sitio = caja.style()
                                ->subElementRect(QStyle::SE_LineEditContents, &opcion, &caja)
                                .marginsRemoved(caja.textMargins())
                                .adjusted(kMargen, 0, -kMargen, 0);
        const QFontMetrics medidas = caja.fontMetrics();
        if (medidas.horizontalAdvance(caja.text()) <= sitio.width())
            return;
        QPainter pintor(&caja);
        pintor.fillRect(sitio.adjusted(0, kMargen, kMargen, -kMargen),
                        caja.isReadOnly() ? fondo_fijo() : caja.palette().color(QPalette::Base));
        pintor.setPen(caja.palette().color(QPalette::Text));
        pintor.drawText(sitio, Qt::AlignLeft | Qt::AlignVCenter,
                        medidas.elidedText(caja.text(), Qt::ElideRight, sitio.width()));
    }
    /// Al entrar queda todo seleccionado: se lee desde el comienzo, y digitar lo reemplaza igual.
    static void empiece_por_el_comienzo(QLineEdit* caja) {
        if (caja->hasFocus() && caja->inputMask().isEmpty() && !cabe(caja) &&
            caja->selectedText() == caja->text())
            caja->setSelection(int(caja->text().size()), -int(caja->text().size()));
    }
    static bool se_va(const QFocusEvent& evento) {
        const Qt::FocusReason r = evento.reason();
        return r == Qt::TabFocusReason || r == Qt::BacktabFocusReason || r == Qt::MouseFocusReason;
    }
};

/// El mismo dibujo, con la tinta del tema.
QIcon con_tinta(const QIcon& molde);

/// Fusion con el foco siempre a la vista y medidas que crecen con la letra.
class EstiloQuorvex : public QProxyStyle {
public:
    EstiloQuorvex() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    using QProxyStyle::polish;
    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        if (auto* caja = qobject_cast<QLineEdit*>(widget)) {
            lector_.atienda(caja);
            cuide_lo_pegado(*caja);
        } else if (auto* lista = qobject_cast<QComboBox*>(widget)) {
            lector_.atienda(lista);
        }
    }

    int pixelMetric(PixelMetric medida, const QStyleOption* opcion,
                    const QWidget* widget) const override {
        switch (medida) {
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
        case PM_LayoutLeftMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutBottomMargin:
            return paso();
        case PM_SmallIconSize:
        case PM_ButtonIconSize:
        case PM_ListViewIconSize:
            return escalado(16);
        case PM_ToolBarIconSize:
            return escalado(22);
        case PM_ButtonMargin:
            return escalado(8);
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return escalado(14);
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing:
            return escalado(6);
        case PM_HeaderMargin: // el título, sobre lo que dice su columna, si no le quita sitio
            return widget && !area_estrecha() ? DelegadoCelda::margen(widget->fontMetrics())
                                              : escalado(3);
        case PM_DefaultFrameWidth: // el del foco cabe en él
            return qobject_cast<const QAbstractScrollArea*>(widget)
                       ? qMax(2, escalado(2))
                       : QProxyStyle::pixelMetric(medida, opcion, widget);
        case PM_TitleBarHeight:
            return escalado(24);
        case PM_TitleBarButtonIconSize:
        case PM_TitleBarButtonSize:
            return escalado(16);
        case PM_ScrollBarExtent:
            return escalado(14);
        default:
            return QProxyStyle::pixelMetric(medida, opcion, widget);
        }
    }

    void drawPrimitive(PrimitiveElement elemento, const QStyleOption* opcion, QPainter* pintor,
                       const QWidget* widget) const override {
        if (elemento == PE_FrameFocusRect) {
            anillo(pintor, opcion->rect);
            return;
        }
        if (elemento == PE_PanelLineEdit && opcion->state.testFlag(State_ReadOnly)) {
            if (const auto* caja = qstyleoption_cast<const QStyleOptionFrame*>(opcion)) {
                QStyleOptionFrame copia = *caja;
                copia.palette.setColor(QPalette::Base, fondo_fijo());
                QProxyStyle::drawPrimitive(elemento, &copia, pintor, widget);
                return;
            }
        }
        if (elemento == PE_FrameTabWidget && oscuro_) {
            if (const auto* hoja = qstyleoption_cast<const QStyleOptionTabWidgetFrame*>(opcion)) {
                QStyleOptionTabWidgetFrame copia = *hoja;
                copia.palette.setColor(QPalette::Button, kHojaOscura);
                QProxyStyle::drawPrimitive(elemento, &copia, pintor, widget);
                return;
            }
        }
        if (elemento == PE_FrameGroupBox) {
            borde(pintor, opcion->rect, opcion->palette, 3);
            return;
        }
        QProxyStyle::drawPrimitive(elemento, opcion, pintor, widget);
        // Fusion saca los bordes del fondo: en oscuro no se verían, y en claro una casilla vacía
        // tampoco. Y el de un marco lo pierde a escalas como 150 %.
        const bool de_lista =
            elemento == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget);
        if (elemento == PE_Frame || elemento == PE_IndicatorCheckBox ||
            elemento == PE_IndicatorRadioButton || (oscuro_ && elemento == PE_FrameLineEdit))
            borde(pintor, opcion->rect, opcion->palette,
                  elemento == PE_IndicatorRadioButton ? opcion->rect.width() / 2 : 2);
        if (elemento == PE_FrameLineEdit && opcion->state.testFlag(State_HasFocus))
            anillo(pintor, opcion->rect);
        if (de_lista && widget->hasFocus())
            anillo(pintor, opcion->rect);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* opcion,
                            QPainter* pintor, const QWidget* widget) const override {
        const auto* barra = qstyleoption_cast<const QStyleOptionTitleBar*>(opcion);
        if (oscuro_ && barra && (barra->titleBarState & State_Active)) {
            // Fusion le da al título activo una sombra del color del texto: clara, se lee doble.
            QStyleOptionTitleBar copia = *barra;
            copia.palette.setColor(QPalette::Text, copia.palette.color(QPalette::Dark));
            QProxyStyle::drawComplexControl(control, &copia, pintor, widget);
            return;
        }
        const auto* lista = qstyleoption_cast<const QStyleOptionComboBox*>(opcion);
        if (lista && !lista->state.testFlag(State_Enabled)) {
            // Lo apagado no levanta: con el brillo de un botón su texto no se leería.
            QStyleOptionComboBox copia = *lista;
            copia.palette.setColor(QPalette::Button, copia.palette.color(QPalette::Window));
            QProxyStyle::drawComplexControl(control, &copia, pintor, widget);
            return;
        }
        QProxyStyle::drawComplexControl(control, opcion, pintor, widget);
        const bool caja = control == CC_ComboBox || control == CC_SpinBox;
        if (oscuro_ && control == CC_SpinBox && opcion->subControls & SC_SpinBoxFrame)
            borde(pintor, opcion->rect, opcion->palette, 2);
        if (caja && opcion->state.testFlag(State_HasFocus) && widget)
            anillo(pintor, opcion->rect);
    }

    void drawControl(ControlElement elemento, const QStyleOption* opcion, QPainter* pintor,
                     const QWidget* widget) const override {
        const auto* pestana = qstyleoption_cast<const QStyleOptionTab*>(opcion);
        if (elemento == CE_TabBarTabShape && pestana) {
            pinte_pestana(*pestana, pintor, widget);
            return;
        }
        if (elemento == CE_TabBarTabLabel && pestana && pestana->state.testFlag(State_HasFocus)) {
            // Qt le pinta el suyo, de un píxel, sin preguntarle al estilo.
            QStyleOptionTab copia = *pestana;
            copia.state.setFlag(State_HasFocus, false);
            QProxyStyle::drawControl(elemento, &copia, pintor, widget);
            const int aire = 1 + pixelMetric(PM_DefaultFrameWidth, opcion, widget);
            anillo(pintor, pestana->rect.adjusted(aire + 1, aire, -aire - 1, -aire));
            return;
        }
        const auto* lista = qstyleoption_cast<const QStyleOptionComboBox*>(opcion);
        if (elemento == CE_ComboBoxLabel && lista && !lista->editable) {
            QStyleOptionComboBox copia = *lista;
            const int sitio =
                subControlRect(CC_ComboBox, lista, SC_ComboBoxEditField, widget).width() - 2;
            copia.currentText =
                lista->fontMetrics.elidedText(lista->currentText, Qt::ElideRight, sitio);
            // No siempre es el de una de sus filas: aquí se sabe cuál se pinta.
            if (const QVariant cortado = copia.currentText == lista->currentText
                                             ? QVariant()
                                             : QVariant(lista->currentText);
                widget && widget->property(kTextoCortado) != cortado)
                const_cast<QWidget*>(widget)->setProperty(kTextoCortado, cortado);
            QProxyStyle::drawControl(elemento, &copia, pintor, widget);
            return;
        }
        const auto* titulo = qstyleoption_cast<const QStyleOptionHeader*>(opcion);
        if (elemento == CE_HeaderLabel && titulo) {
            QStyleOptionHeader copia = *titulo;
            const int sobra = pixelMetric(PM_HeaderMargin, opcion, widget) - kMargenTitulo;
            copia.rect.adjust(0, -sobra, 0, sobra);
            // En una pantalla pequeña se mide con menos; si cabe, queda sobre lo que titula.
            const int corre = widget ? DelegadoCelda::margen(widget->fontMetrics()) -
                                           pixelMetric(PM_HeaderMargin, opcion, widget)
                                     : 0;
            if (corre > 0 && titulo->fontMetrics.size(0, titulo->text).width() + 2 * corre <=
                                 titulo->rect.width())
                copia.rect.adjust(corre, 0, -corre, 0);
            QProxyStyle::drawControl(elemento, &copia, pintor, widget);
            return;
        }
        QProxyStyle::drawControl(elemento, opcion, pintor, widget);
        if (elemento == CE_PushButtonBevel && opcion->state.testFlag(State_HasFocus))
            anillo(pintor, opcion->rect.adjusted(1, 1, -1, -1));
    }

    // El margen de un título es hacia los lados: no le quita filas a la rejilla.
    QSize sizeFromContents(ContentsType tipo, const QStyleOption* opcion, const QSize& contenido,
                           const QWidget* widget) const override {
        QSize s = QProxyStyle::sizeFromContents(tipo, opcion, contenido, widget);
        if (tipo == CT_HeaderSection)
            s.rheight() -= 2 * (pixelMetric(PM_HeaderMargin, opcion, widget) - kMargenTitulo);
        return s;
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* opcion,
                         SubControl parte, const QWidget* widget) const override {
        const auto* grupo = qstyleoption_cast<const QStyleOptionGroupBox*>(opcion);
        if (control != CC_GroupBox || !grupo)
            return QProxyStyle::subControlRect(control, opcion, parte, widget);
        // El título va dentro del recuadro, sobre lo que agrupa.
        const bool titulo = grupo->subControls & (SC_GroupBoxLabel | SC_GroupBoxCheckBox);
        const int alto =
            titulo && !grupo->text.isEmpty() ? grupo->fontMetrics.height() + escalado(4) : 0;
        if (parte == SC_GroupBoxFrame)
            return grupo->rect;
        if (parte == SC_GroupBoxContents)
            return grupo->rect.adjusted(1, 1 + alto, -1, -1);
        QRect r = QProxyStyle::subControlRect(control, opcion, parte, widget);
        r.moveTop(grupo->rect.top() + escalado(4));
        r.translate(paso(), 0);
        return r;
    }

    QPixmap generatedIconPixmap(QIcon::Mode modo, const QPixmap& dibujo,
                                const QStyleOption* opcion) const override {
        if (modo != QIcon::Disabled || dibujo.isNull())
            return QProxyStyle::generatedIconPixmap(modo, dibujo, opcion);
        // El gris de Fusion brilla más que el dibujo sobre un fondo oscuro: apagado es desvaído.
        QPixmap apagado(dibujo.size());
        apagado.setDevicePixelRatio(dibujo.devicePixelRatio());
        apagado.fill(Qt::transparent);
        QPainter pintor(&apagado);
        pintor.setOpacity(0.35);
        pintor.drawPixmap(0, 0, dibujo);
        return apagado;
    }

    QIcon standardIcon(StandardPixmap cual, const QStyleOption* opcion,
                       const QWidget* widget) const override {
        const QIcon dibujo = QProxyStyle::standardIcon(cual, opcion, widget);
        // Con esta flecha se llega a lo que no cabe de un menú o de una barra.
        const bool flecha = cual == SP_ToolBarHorizontalExtensionButton ||
                            cual == SP_ToolBarVerticalExtensionButton;
        return flecha ? con_tinta(dibujo) : dibujo;
    }

    int styleHint(StyleHint consejo, const QStyleOption* opcion, const QWidget* widget,
                  QStyleHintReturn* retorno) const override {
        if (consejo == SH_ComboBox_AllowWheelScrolling)
            return 1;
        if (consejo == SH_Table_GridLineColor && oscuro_)
            return int(kLineaOscura.rgba());
        // Los mensajes y preguntas siguen el orden de lectura: Sí, luego No.
        if (consejo == SH_DialogButtonLayout)
            return 0;
        return QProxyStyle::styleHint(consejo, opcion, widget, retorno);
    }

private:
    mutable LectorDeCajas lector_;

    void pinte_pestana(const QStyleOptionTab& pestana, QPainter* pintor,
                       const QWidget* widget) const {
        const bool actual = pestana.state.testFlag(State_Selected);
        QStyleOptionTab copia = pestana;
        // En oscuro el brillo que Fusion le da a la actual no se nota: se hunden las demás.
        if (oscuro_)
            copia.palette.setColor(QPalette::Button, actual ? kHojaOscura : kPestanaOscura);
        QProxyStyle::drawControl(CE_TabBarTabShape, &copia, pintor, widget);
        if (!actual || !(pestana.shape == QTabBar::RoundedNorth))
            return;
        const QRect filo(pestana.rect.left() + 2, pestana.rect.top(), pestana.rect.width() - 4,
                         escalado(3));
        pintor->fillRect(filo, segun(kAcento, kAcentoOscuro));
    }

    static void borde(QPainter* pintor, const QRect& marco, const QPalette& colores, qreal curva) {
        pintor->save();
        pintor->setRenderHint(QPainter::Antialiasing);
        pintor->setPen(colores.color(QPalette::Mid));
        pintor->setBrush(Qt::NoBrush);
        pintor->drawRoundedRect(QRectF(marco).adjusted(0.5, 0.5, -0.5, -0.5), curva, curva);
        pintor->restore();
    }

    static void anillo(QPainter* pintor, const QRect& marco) {
        const qreal grueso = qMax(2, escalado(2));
        pintor->save();
        pintor->setRenderHint(QPainter::Antialiasing);
        pintor->setPen(QPen(segun(kAcento, kAcentoOscuro), grueso));
        pintor->setBrush(Qt::NoBrush);
        const qreal m = grueso / 2;
        pintor->drawRoundedRect(QRectF(marco).adjusted(m, m, -m, -m), 2, 2);
        pintor->restore();
    }
};

QPalette paleta() {
    QPalette p;
    const QColor fondo = segun({0xf3, 0xf5, 0xf7}, {0x23, 0x27, 0x2b});
    const QColor papel = segun(Qt::white, {0x1a, 0x1d, 0x20});
    const QColor tinta = segun({0x1c, 0x22, 0x28}, {0xe8, 0xeb, 0xee});
    const QColor apagado = segun({0x64, 0x6c, 0x74}, {0xa0, 0xa9, 0xb1});
    const QColor boton = segun({0xe8, 0xec, 0xf0}, {0x33, 0x39, 0x3f});
    p.setColor(QPalette::Window, fondo);
    p.setColor(QPalette::WindowText, tinta);
    p.setColor(QPalette::Base, papel);
    p.setColor(QPalette::AlternateBase, segun({0xee, 0xf3, 0xf8}, {0x21, 0x26, 0x2b}));
    p.setColor(QPalette::Text, tinta);
    p.setColor(QPalette::PlaceholderText, apagado);
    p.setColor(QPalette::Button, boton);
    p.setColor(QPalette::ButtonText, tinta);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Light, segun(Qt::white, boton.lighter(130)));
    p.setColor(QPalette::Midlight, segun(boton.lighter(104), boton.lighter(115)));
    p.setColor(QPalette::Mid, segun({0xa3, 0xac, 0xb5}, {0x7a, 0x84, 0x8e}));
    p.setColor(QPalette::Dark, segun({0x87, 0x90, 0x99}, {0x14, 0x16, 0x18}));
    p.setColor(QPalette::Shadow, segun({0x60, 0x67, 0x6e}, Qt::black));
    p.setColor(QPalette::Highlight, segun(kAcento, kAcentoOscuro.darker(125)));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, segun(kAcento, kAcentoOscuro.lighter(130)));
    p.setColor(QPalette::LinkVisited, p.color(QPalette::Link));
    p.setColor(QPalette::ToolTipBase, segun(Qt::white, boton));
    p.setColor(QPalette::ToolTipText, tinta);
    for (const auto rol : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, rol, apagado);
    // En oscuro el fondo de la ventana apenas se distingue del papel.
    p.setColor(QPalette::Disabled, QPalette::Base, segun(fondo, fondo_fijo()));
    p.setColor(QPalette::Disabled, QPalette::AlternateBase,
               segun(p.color(QPalette::AlternateBase), {0x2e, 0x34, 0x3a}));
    p.setColor(QPalette::Disabled, QPalette::Highlight,
               segun({0xc4, 0xcc, 0xd4}, {0x4a, 0x52, 0x5a}));
    return p;
}

/// El escritorio dice su tema con su paleta, o lo averigua la aplicación (propiedad "tema", claro u
/// oscuro); QUORVEX_TEMA manda sobre los dos.
bool pide_oscuro(const QApplication& aplicacion) {
    for (const QString& tema :
         {qEnvironmentVariable("QUORVEX_TEMA"), aplicacion.property("tema").toString()})
        if (tema == QLatin1String("claro") || tema == QLatin1String("oscuro"))
            return tema == QLatin1String("oscuro");
    // Puesta la nuestra, la paleta ya no es la del sistema.
    if (aplicacion.property("con_estilo").toBool())
        return oscuro_;
    const QPalette del_sistema = aplicacion.palette();
    return del_sistema.color(QPalette::Window).lightness() <
           del_sistema.color(QPalette::WindowText).lightness();
}

/// Los menús y los diálogos propios de Qt también van en español.
void instale_textos(QApplication& aplicacion) {
    auto* textos = new QTranslator(&aplicacion);
    if (textos->load(QStringLiteral("qtbase_es"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        aplicacion.installTranslator(textos);
    aplicacion.installTranslator(new TextosQt(&aplicacion));
}

/// Lo que ya estaba escrito en el color de los negativos pasa al del tema nuevo.
void repinte_negativos(const QColor& anterior) {
    for (QWidget* w : QApplication::allWidgets())
        for (const auto rol : {QPalette::Text, QPalette::WindowText})
            if (QPalette p = w->palette(); p.color(rol) == anterior) {
                p.setColor(rol, color_negativo());
                w->setPalette(p);
            }
}

} // namespace

void aplique_estilo(QApplication& aplicacion, const ColoresEmpresa& colores) {
    colores_ = colores;
    QFont letra = aplicacion.font();
    if (letra.pointSizeF() > 0 && letra.pointSizeF() < kPuntosMinimos)
        letra.setPointSizeF(kPuntosMinimos);
    aplicacion.setFont(letra);
    const QColor negativo = color_negativo();
    oscuro_ = pide_oscuro(aplicacion);
    if (!aplicacion.property("con_estilo").toBool())
        instale_textos(aplicacion);
    aplicacion.setProperty("con_estilo", true);
    aplicacion.setStyle(new EstiloQuorvex);
    aplicacion.setPalette(paleta());
    if (negativo != color_negativo())
        repinte_negativos(negativo);
    // Adwaita trae sus iconos de color en PNG: no hace falta el complemento de SVG.
    if (QIcon::fromTheme(QStringLiteral("document-save")).isNull()) {
        QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() +
                                   QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                             QStringLiteral("icons"),
                                                             QStandardPaths::LocateDirectory));
        QIcon::setThemeName(QStringLiteral("Adwaita"));
    }
}

const ColoresEmpresa& colores_empresa() {
    return colores_;
}

qreal escala() {
    const qreal pixeles = QFontInfo(QApplication::font()).pixelSize();
    return qMax<qreal>(1.0, qRound(pixeles / kPixelesLetra * 20) / 20.0);
}

int paso(qreal n) {
    return qRound(8 * n * escala());
}

int escalado(int pixeles) {
    return qRound(pixeles * escala());
}

int ancho_caracteres(const QFontMetrics& medidas, int n) {
    return medidas.horizontalAdvance(QLatin1Char('0')) * n;
}

QFont fuente_cifras(const QFont& base) {
    const QFontMetrics m(base);
    const int cero = m.horizontalAdvance(QLatin1Char('0'));
    for (char c = '1'; c <= '9'; ++c) {
        if (m.horizontalAdvance(QLatin1Char(c)) != cero) {
            QFont fija = QFontDatabase::systemFont(QFontDatabase::FixedFont);
            fija.setPointSizeF(base.pointSizeF() > 0 ? base.pointSizeF() : kPuntosMinimos);
            return fija;
        }
    }
    return base;
}

QColor color_negativo() {
    return segun({0xa8, 0x10, 0x18}, {0xff, 0x8c, 0x84});
}

QColor color_inactivo() {
    return segun({0xc0, 0x18, 0x18}, {0xff, 0x80, 0x78});
}

void pinte_degradado(QPainter& pintor, const QRect& marco) {
    QLinearGradient g(marco.topLeft(), marco.topRight());
    g.setColorAt(0, colores_.principal);
    g.setColorAt(1, colores_.secundario);
    pintor.fillRect(marco, g);
}

namespace {

/// Un dibujo de un solo color, pintado con la tinta del tema en que se mira.
class MotorDeTinta : public QIconEngine {
public:
    explicit MotorDeTinta(const QIcon& molde) : molde_(molde) {}
    QIconEngine* clone() const override { return new MotorDeTinta(*this); }
    QSize actualSize(const QSize& tamano, QIcon::Mode, QIcon::State) override { return tamano; }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return molde_.availableSizes();
    }
    QPixmap pixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State) override {
        const QSize aire = tamano / 8; // el trazo va de lado a lado: tocaría el texto
        const QPixmap trazo = molde_.pixmap(tamano - aire, 1.0);
        if (trazo.isNull())
            return trazo;
        QPixmap dibujo(tamano);
        dibujo.fill(Qt::transparent);
        QPainter pintor(&dibujo);
        pintor.drawPixmap((tamano.width() - trazo.width()) / 2,
                          (tamano.height() - trazo.height()) / 2, trazo);
        pintor.setCompositionMode(QPainter::CompositionMode_SourceIn);
        pintor.fillRect(dibujo.rect(),
                        QApplication::palette().color(modo == QIcon::Disabled ? QPalette::Disabled
                                                                              : QPalette::Normal,
                                                      QPalette::ButtonText));
        return dibujo;
    }
    QPixmap scaledPixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State estado,
                         qreal escala) override {
        QPixmap dibujo = pixmap(tamano, modo, estado);
        dibujo.setDevicePixelRatio(escala);
        return dibujo;
    }
    void paint(QPainter* pintor, const QRect& lugar, QIcon::Mode modo,
               QIcon::State estado) override {
        const qreal fino = pintor->device()->devicePixelRatioF();
        pintor->drawPixmap(lugar, pixmap((QSizeF(lugar.size()) * fino).toSize(), modo, estado));
    }

protected:
    QIcon molde_;
};

/// Un dibujo de color cuya orilla pálida, en claro, se perdería en el botón.
class MotorOrlado : public MotorDeTinta {
public:
    using MotorDeTinta::MotorDeTinta;
    QIconEngine* clone() const override { return new MotorOrlado(*this); }
    QPixmap pixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State estado) override {
        const QPixmap dibujo = molde_.pixmap(tamano, 1.0, modo, estado);
        if (oscuro_ || dibujo.isNull())
            return dibujo;
        const QImage antes = dibujo.toImage().convertToFormat(QImage::Format_ARGB32);
        QImage orlado = antes;
        constexpr int kCubre = 128, kPalido = 150; // lo demás es sombra, o ya se distingue
        const int filo = qMax(1, tamano.width() / 24);
        const auto vacio = [&](int x, int y) {
            return !antes.rect().contains(x, y) || qAlpha(antes.pixel(x, y)) < kCubre;
        };
        const QRgb tinta = QApplication::palette().color(QPalette::Dark).rgb();
        for (int y = 0; y < antes.height(); ++y)
            for (int x = 0; x < antes.width(); ++x)
                if (!vacio(x, y) && qGray(antes.pixel(x, y)) > kPalido &&
                    (vacio(x - filo, y) || vacio(x + filo, y) || vacio(x, y - filo) ||
                     vacio(x, y + filo)))
                    orlado.setPixel(x, y, tinta);
        return QPixmap::fromImage(orlado);
    }
};

QIcon con_tinta(const QIcon& molde) {
    return QIcon(new MotorDeTinta(molde));
}

/// Los de flechas, lupas y letras del tema empacado son pálidos o azul oscuro: en claro o en oscuro
/// no se ven. Su molde de un color sirve en los dos. Nulo si el tema no lo trae.
QIcon de_un_color(const QString& nombre) {
    static const QRegularExpression cuales(
        QStringLiteral("^(go|zoom|format|view-refresh|edit-find|view-sort|list-(add|remove))\\b"));
    QIcon molde;
    if (!cuales.match(nombre).hasMatch())
        return molde;
    for (const QString& raiz : QIcon::themeSearchPaths())
        for (const int lado : {16, 24, 32, 48, 64})
            if (const QString archivo = QStringLiteral("%1/%2/%3x%3/actions/%4-symbolic.symbolic"
                                                       ".png")
                                            .arg(raiz, QIcon::themeName())
                                            .arg(lado)
                                            .arg(nombre);
                QFile::exists(archivo))
                molde.addFile(archivo);
    return molde.isNull() ? molde : QIcon(new MotorDeTinta(molde));
}

} // namespace

QIcon icono(const QString& nombre) {
    // El tema empacado no trae algunos, o solo los trae en trazos que aquí no se pintan.
    static const QHash<QString, QString> parecidos{
        {QStringLiteral("dialog-cancel"), QStringLiteral("window-close")},
        {QStringLiteral("view-list-details"), QStringLiteral("x-office-spreadsheet")},
        {QStringLiteral("dialog-ok"), QStringLiteral("emblem-default")},
        {QStringLiteral("dialog-ok-apply"), QStringLiteral("emblem-default")},
        {QStringLiteral("application-pdf"), QStringLiteral("x-office-document")},
        {QStringLiteral("document-multiple"), QStringLiteral("emblem-documents")},
        {QStringLiteral("transform-move"), QStringLiteral("go-jump")},
        {QStringLiteral("document-edit"), QStringLiteral("document-properties")}};
    if (nombre.isEmpty())
        return {};
    for (const QString& uno : {nombre, parecidos.value(nombre)}) {
        if (const QIcon plano = de_un_color(uno); !plano.isNull())
            return plano;
        if (const QIcon propio = QIcon::fromTheme(uno); !propio.isNull())
            return QIcon(new MotorOrlado(propio));
    }
    return {};
}
