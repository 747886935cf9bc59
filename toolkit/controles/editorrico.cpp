#include "toolkit/controles/editorrico.h"

#include "toolkit/aire.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/estilo.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QFontComboBox>
#include <QKeyEvent>
#include <QTextEdit>
#include <QTextList>
#include <QTextTable>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

constexpr Qt::Alignment kLados[]{Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight, Qt::AlignJustify};
constexpr int kCuerpoNota = 10;

/// La base guarda ISO 8859-1: lo demás va como entidad.
QString con_entidades(const QString& html) {
    QString salida;
    salida.reserve(html.size());
    for (const char32_t c : html.toUcs4())
        salida += c < 0x80 || (c >= 0xA0 && c <= 0xFF) ? QString(QChar(char16_t(c)))
                                                       : QStringLiteral("&#%1;").arg(uint(c));
    return salida;
}

} // namespace

EditorRico::EditorRico(QWidget* padre)
    : QWidget(padre), texto(new QTextEdit(this)), letra(new QFontComboBox(this)),
      barra_(new QToolBar(this)), cuerpo_(new ListaTecleo(this)) {
    texto->setObjectName("texto");
    texto->setAcceptRichText(true);
    texto->installEventFilter(this);
    arme_letras();
    arme_parrafos();
    arme_tablas();
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(paso(0.5));
    columna->addWidget(barra_);
    columna->addWidget(texto, 1);
    setFocusProxy(texto);
    texto->setTabChangesFocus(true);
    connect(texto, &QTextEdit::currentCharFormatChanged, this, &EditorRico::refleje);
    connect(texto, &QTextEdit::cursorPositionChanged, this, &EditorRico::refleje);
    html({});
}

QAction* EditorRico::orden(const QString& nombre, const QString& rotulo, const QString& icono,
                           const QKeySequence& tecla, bool conmuta,
                           std::function<void(bool)> accion) {
    QAction* a = barra_->addAction(::icono(icono), rotulo);
    a->setObjectName(nombre);
    a->setCheckable(conmuta);
    a->setShortcut(tecla);
    a->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(a);
    connect(a, &QAction::triggered, this, [this, accion = std::move(accion)](bool si) {
        accion(si);
        texto->setFocus();
    });
    return a;
}

void EditorRico::arme_letras() {
    texto->setAccessibleName(QStringLiteral("Texto con formato"));
    letra->setObjectName("letra");
    letra->setAccessibleName(QStringLiteral("Letra"));
    letra->setFocusPolicy(Qt::ClickFocus);
    if (area_estrecha()) // el sitio es de las órdenes
        letra->setMaximumWidth(escalado(140));
    cuerpo_->setObjectName("cuerpo");
    cuerpo_->setAccessibleName(QStringLiteral("Tamaño de la letra"));
    cuerpo_->setFocusPolicy(Qt::ClickFocus);
    for (const int c : {7, 8, 9, 10, 11, 12, 14, 16, 18})
        cuerpo_->addItem(QString::number(c), c);
    barra_->addWidget(letra);
    barra_->addWidget(cuerpo_);
    connect(letra, &QFontComboBox::textActivated, this, [this](const QString& familia) {
        QTextCharFormat f;
        f.setFontFamilies({familia});
        aplique(f);
    });
    connect(cuerpo_, &QComboBox::activated, this, [this](int i) {
        QTextCharFormat f;
        f.setFontPointSize(cuerpo_->itemData(i).toInt());
        aplique(f);
    });
    negrita_ =
        orden("negrita", "Negrita", "format-text-bold", QKeySequence::Bold, true, [this](bool si) {
            QTextCharFormat f;
            f.setFontWeight(si ? QFont::Bold : QFont::Normal);
            aplique(f);
        });
    cursiva_ = orden("cursiva", "Cursiva", "format-text-italic", QKeySequence::Italic, true,
                     [this](bool si) {
                         QTextCharFormat f;
                         f.setFontItalic(si);
                         aplique(f);
                     });
    subrayado_ = orden("subrayado", "Subrayado", "format-text-underline", QKeySequence::Underline,
                       true, [this](bool si) {
                           QTextCharFormat f;
                           f.setFontUnderline(si);
                           aplique(f);
                       });
}

void EditorRico::arme_parrafos() {
    barra_->addSeparator();
    vinetas_ = orden("vinetas", "Viñetas", "format-list-unordered", {}, true,
                     [this](bool si) { liste(si, QTextListFormat::ListDisc); });
    numeros_ = orden("numeros", "Numeración", "format-list-ordered", {}, true,
                     [this](bool si) { liste(si, QTextListFormat::ListDecimal); });
    barra_->addSeparator();
    auto* grupo = new QActionGroup(this);
    const struct {
        const char *nombre, *rotulo, *icono;
    } lados[]{{"izquierda", "A la izquierda", "format-justify-left"},
              {"centro", "Al centro", "format-justify-center"},
              {"derecha", "A la derecha", "format-justify-right"},
              {"justificado", "Justificado", "format-justify-fill"}};
    for (int i = 0; i < 4; ++i) {
        QAction* a = orden(lados[i].nombre, QString::fromUtf8(lados[i].rotulo), lados[i].icono, {},
                           true, [this, i](bool) { alinee(kLados[i]); });
        grupo->addAction(a);
        lados_ << a;
    }
}

void EditorRico::arme_tablas() {
    barra_->addSeparator();
    orden("tabla", "Insertar tabla", "insert-table", {}, false, [this](bool) { inserte_tabla(); });
    orden("fila", "Agregar fila", "list-add", {}, false, [this](bool) {
        QTextCursor c = texto->textCursor();
        if (QTextTable* t = c.currentTable())
            t->insertRows(t->cellAt(c).row() + 1, 1);
    });
    orden("quite_fila", "Quitar fila", "list-remove", {}, false, [this](bool) {
        QTextCursor c = texto->textCursor();
        if (QTextTable* t = c.currentTable())
            t->removeRows(t->cellAt(c).row(), 1);
    });
}

void EditorRico::aplique(const QTextCharFormat& formato) {
    texto->mergeCurrentCharFormat(formato);
    texto->setFocus();
}

void EditorRico::liste(bool si, int estilo) {
    QTextCursor c = texto->textCursor();
    if (si) {
        c.createList(QTextListFormat::Style(estilo));
    } else if (QTextList* l = c.currentList()) {
        l->remove(c.block());
        QTextBlockFormat f = c.blockFormat();
        f.setIndent(0);
        c.setBlockFormat(f);
    }
    refleje();
}

void EditorRico::alinee(Qt::Alignment lado) {
    texto->setAlignment(lado);
}

void EditorRico::inserte_tabla() {
    constexpr int kFilas = 3, kColumnas = 2;
    QTextTableFormat f;
    f.setBorder(1);
    f.setCellPadding(2);
    f.setCellSpacing(0);
    f.setBorderCollapse(true);
    f.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    QTextTable* t = texto->textCursor().insertTable(kFilas, kColumnas, f);
    // La última columna es la de las cifras.
    for (int fila = 0; fila < kFilas; ++fila) {
        QTextCursor celda = t->cellAt(fila, kColumnas - 1).firstCursorPosition();
        QTextBlockFormat derecha;
        derecha.setAlignment(Qt::AlignRight);
        celda.mergeBlockFormat(derecha);
    }
    texto->setTextCursor(t->cellAt(0, 0).firstCursorPosition());
}

bool EditorRico::eventFilter(QObject* objeto, QEvent* evento) {
    QTextCursor c = texto->textCursor();
    QTextTable* t = c.currentTable();
    const int tecla =
        evento->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(evento)->key() : 0;
    if (!t || (tecla != Qt::Key_Tab && tecla != Qt::Key_Backtab))
        return QWidget::eventFilter(objeto, evento);
    const bool avanza = tecla == Qt::Key_Tab;
    if (!c.movePosition(avanza ? QTextCursor::NextCell : QTextCursor::PreviousCell) && avanza) {
        const int ultima = t->rows() - 1;
        t->appendRows(1);
        for (int i = 0; i < t->columns(); ++i)
            t->cellAt(ultima + 1, i)
                .firstCursorPosition()
                .setBlockFormat(t->cellAt(ultima, i).firstCursorPosition().blockFormat());
        c.movePosition(QTextCursor::NextCell);
    }
    texto->setTextCursor(t->cellAt(c).lastCursorPosition());
    return true;
}

void EditorRico::refleje() {
    const QTextCharFormat f = texto->currentCharFormat();
    negrita_->setChecked(f.fontWeight() >= QFont::Bold);
    cursiva_->setChecked(f.fontItalic());
    subrayado_->setChecked(f.fontUnderline());
    const QFont actual = f.font();
    letra->setEditText(actual.families().value(0)); // también si el equipo no la tiene
    cuerpo_->setCurrentIndex(cuerpo_->findData(qRound(actual.pointSizeF())));
    const QTextList* l = texto->textCursor().currentList();
    vinetas_->setChecked(l && l->format().style() == QTextListFormat::ListDisc);
    numeros_->setChecked(l && l->format().style() == QTextListFormat::ListDecimal);
    for (int i = 0; i < lados_.size(); ++i)
        lados_[i]->setChecked(bool(texto->alignment() & kLados[i]));
}

QString EditorRico::html() const {
    return texto->document()->isEmpty() ? QString() : con_entidades(texto->toHtml());
}

void EditorRico::html(const QString& html) {
    const QFont base(QStringLiteral("Arial"), kCuerpoNota);
    texto->document()->setDefaultFont(base);
    if (Qt::mightBeRichText(html))
        texto->setHtml(html);
    else
        texto->setPlainText(html);
    texto->document()->setModified(false);
    refleje();
}
