#include "toolkit/estilo.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLibraryInfo>
#include <QPainter>
#include <QProxyStyle>
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
const QColor kFondoFijo(0xe9, 0xed, 0xf1);

/// Fusion con el foco siempre a la vista y medidas que crecen con la letra.
class EstiloQuorvex : public QProxyStyle {
public:
    EstiloQuorvex() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

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
            // Lo que no se puede cambiar se ve distinto antes de intentarlo.
            if (const auto* caja = qstyleoption_cast<const QStyleOptionFrame*>(opcion)) {
                QStyleOptionFrame copia = *caja;
                copia.palette.setColor(QPalette::Base, kFondoFijo);
                QProxyStyle::drawPrimitive(elemento, &copia, pintor, widget);
                return;
            }
        }
        QProxyStyle::drawPrimitive(elemento, opcion, pintor, widget);
        if (elemento == PE_FrameLineEdit && opcion->state.testFlag(State_HasFocus))
            anillo(pintor, opcion->rect);
        if (elemento == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget) &&
            widget->hasFocus())
            anillo(pintor, opcion->rect);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* opcion,
                            QPainter* pintor, const QWidget* widget) const override {
        QProxyStyle::drawComplexControl(control, opcion, pintor, widget);
        const bool caja = control == CC_ComboBox || control == CC_SpinBox;
        if (caja && opcion->state.testFlag(State_HasFocus) && widget)
            anillo(pintor, opcion->rect);
    }

    void drawControl(ControlElement elemento, const QStyleOption* opcion, QPainter* pintor,
                     const QWidget* widget) const override {
        QProxyStyle::drawControl(elemento, opcion, pintor, widget);
        if (elemento == CE_PushButtonBevel && opcion->state.testFlag(State_HasFocus))
            anillo(pintor, opcion->rect.adjusted(1, 1, -1, -1));
    }

    int styleHint(StyleHint consejo, const QStyleOption* opcion, const QWidget* widget,
                  QStyleHintReturn* retorno) const override {
        if (consejo == SH_ComboBox_AllowWheelScrolling)
            return 1;
        // Los mensajes y preguntas siguen el orden de lectura: Sí, luego No.
        if (consejo == SH_DialogButtonLayout)
            return 0;
        return QProxyStyle::styleHint(consejo, opcion, widget, retorno);
    }

private:
    static void anillo(QPainter* pintor, const QRect& marco) {
        const qreal grueso = qMax(2, escalado(2));
        pintor->save();
        pintor->setRenderHint(QPainter::Antialiasing);
        pintor->setPen(QPen(colores_.principal, grueso));
        pintor->setBrush(Qt::NoBrush);
        const qreal m = grueso / 2;
        pintor->drawRoundedRect(QRectF(marco).adjusted(m, m, -m, -m), 2, 2);
        pintor->restore();
    }
};

QPalette paleta() {
    QPalette p;
    const QColor fondo(0xf3, 0xf5, 0xf7);
    const QColor tinta(0x1c, 0x22, 0x28);
    const QColor apagado(0x6d, 0x75, 0x7d);
    p.setColor(QPalette::Window, fondo);
    p.setColor(QPalette::WindowText, tinta);
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::AlternateBase, QColor(0xee, 0xf3, 0xf8));
    p.setColor(QPalette::Text, tinta);
    p.setColor(QPalette::PlaceholderText, apagado);
    p.setColor(QPalette::Button, QColor(0xe8, 0xec, 0xf0));
    p.setColor(QPalette::ButtonText, tinta);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Highlight, colores_.principal);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, colores_.principal);
    p.setColor(QPalette::ToolTipBase, Qt::white);
    p.setColor(QPalette::ToolTipText, tinta);
    for (const auto rol : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, rol, apagado);
    p.setColor(QPalette::Disabled, QPalette::Base, fondo);
    p.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xc4, 0xcc, 0xd4));
    return p;
}

} // namespace

void aplique_estilo(QApplication& aplicacion, const ColoresEmpresa& colores) {
    // Los menús propios de Qt (copiar, pegar, restaurar la ventana) también van en español.
    auto* textos = new QTranslator(&aplicacion);
    if (textos->load(QStringLiteral("qtbase_es"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        aplicacion.installTranslator(textos);
    colores_ = colores;
    QFont letra = aplicacion.font();
    if (letra.pointSizeF() > 0 && letra.pointSizeF() < kPuntosMinimos)
        letra.setPointSizeF(kPuntosMinimos);
    aplicacion.setFont(letra);
    aplicacion.setStyle(new EstiloQuorvex);
    aplicacion.setPalette(paleta());
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
    return {0xa8, 0x10, 0x18};
}

QColor color_inactivo() {
    return {0xc0, 0x18, 0x18};
}

void pinte_degradado(QPainter& pintor, const QRect& marco) {
    QLinearGradient g(marco.topLeft(), marco.topRight());
    g.setColorAt(0, colores_.principal);
    g.setColorAt(1, colores_.secundario);
    pintor.fillRect(marco, g);
}

QIcon icono(const QString& nombre) {
    // El tema empacado no trae algunos, o solo los trae en trazos que aquí no se pintan.
    static const QHash<QString, QString> parecidos{
        {QStringLiteral("dialog-cancel"), QStringLiteral("window-close")},
        {QStringLiteral("document-edit"), QStringLiteral("document-properties")}};
    if (nombre.isEmpty())
        return {};
    const QIcon propio = QIcon::fromTheme(nombre);
    return propio.isNull() ? QIcon::fromTheme(parecidos.value(nombre)) : propio;
}
