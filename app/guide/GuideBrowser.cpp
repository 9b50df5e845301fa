#include "app/guide/GuideBrowser.h"

#include "app/common/HostGuard.h"
#include "app/guide/GuidePictures.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QFile>
#include <QResizeEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>

#include <functional>

namespace quellbrook {

namespace {

const QString folder = QStringLiteral("qrc:/guide/");
constexpr int textMargin = 24, cellPadding = 6, codeSize = 13, paragraphGap = 6, lineGap = 3;  // pixels
constexpr int headingSizes[] = {24, 20, 16, 14};

// As in links: lowercase words joined by hyphens, without punctuation.
QString AnchorOf(const QString& heading) {
    QString anchor;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber() || c == '-' || c == '_') anchor += c;
        if (c == ' ') anchor += '-';
    }
    return anchor;
}

void ForEachFragment(const QTextDocument& document, const std::function<void(const QTextFragment&)>& visit) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) visit(part.fragment());
}

QTextCursor Select(QTextDocument& document, int start, int length) {
    QTextCursor cursor(&document);
    cursor.setPosition(start);
    cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    return cursor;
}

void FormatHeading(QTextDocument& document, const QTextBlock& block) {
    const int level = block.blockFormat().headingLevel();
    QTextCharFormat face;
    face.setProperty(QTextFormat::FontPixelSize, headingSizes[std::min<int>(level, std::size(headingSizes)) - 1]);
    face.setFontWeight(QFont::DemiBold);
    Select(document, block.position(), block.length() - 1).setCharFormat(face);
    QTextCharFormat anchor;
    anchor.setAnchor(true);
    anchor.setAnchorNames({AnchorOf(block.text())});
    Select(document, block.position(), 1).mergeCharFormat(anchor);
    QTextBlockFormat gap;
    gap.setTopMargin(level == 1 ? 0 : 28);
    gap.setBottomMargin(8);
    QTextCursor(block).mergeBlockFormat(gap);
}

// Some space between paragraphs, and code that wraps like other text.
void FormatParagraph(const QTextBlock& block) {
    const bool isInTable = QTextCursor(block).currentTable() != nullptr;
    QTextBlockFormat look;
    look.setNonBreakableLines(false);
    look.setTopMargin(isInTable ? 0 : paragraphGap);
    look.setBottomMargin(isInTable ? 0 : paragraphGap);
    if (!isInTable) look.setLineHeight(lineGap, QTextBlockFormat::LineDistanceHeight);
    QTextCursor(block).mergeBlockFormat(look);
}

QString TextOf(const QString& file) {
    QFile text(":/guide/" + file);
    return text.open(QIODevice::ReadOnly) ? QString::fromUtf8(text.readAll()) : QString();
}

}  // namespace

GuideBrowser::GuideBrowser(QWidget* parent) : QTextBrowser(parent) {
    setObjectName(QStringLiteral("guideText"));
    setAccessibleName(tr("Text of the guide"));
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    document()->setDocumentMargin(textMargin);
    GuidePictures::Install(document());
    // Otherwise, each link reads the text again, since formatting counts as a change of it.
    disconnect(document(), &QTextDocument::contentsChanged, this, nullptr);
    connect(this, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& address) { GuardHost(this, [&] { FollowLink(address); }); });
}

QUrl GuideBrowser::AddressOf(const QString& file) { return QUrl(folder + file); }

std::vector<GuideHeading> GuideBrowser::HeadingsOf(const QString& file) {
    QTextDocument document;
    document.setMarkdown(TextOf(file));
    std::vector<GuideHeading> headings;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level > 0) headings.push_back({block.text(), AddressOf(file + '#' + AnchorOf(block.text())), level});
    }
    return headings;
}

void GuideBrowser::doSetSource(const QUrl& address, QTextDocument::ResourceType type) {
    const bool isNewText = !source().matches(address, QUrl::RemoveFragment);
    QTextBrowser::doSetSource(address, type);
    if (isNewText) {
        FormatText();
        LayOutAgain();
    }
    if (address.hasFragment()) scrollToAnchor(address.fragment());
}

void GuideBrowser::FormatText() {
    QTextDocument& text = *document();
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0)
            FormatHeading(text, block);
        else
            FormatParagraph(block);
    }
    ApplyColors();
}

void GuideBrowser::ApplyColors() {
    QTextDocument& text = *document();
    struct Part {
        int start, length;
        bool isLink;
    };
    std::vector<Part> parts;
    ForEachFragment(text, [&parts](const QTextFragment& fragment) {
        const QTextCharFormat format = fragment.charFormat();
        if (!format.anchorHref().isEmpty() || format.fontFixedPitch())
            parts.push_back({fragment.position(), fragment.length(), !format.anchorHref().isEmpty()});
    });
    for (const Part& part : parts) {
        QTextCharFormat look;
        if (part.isLink) {
            look.setForeground(palette().link());
        } else {
            look.setBackground(palette().button());
            look.setProperty(QTextFormat::FontPixelSize, codeSize);
        }
        Select(text, part.start, part.length).mergeCharFormat(look);
    }
    for (QTextFrame* frame : text.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setCellPadding(cellPadding);
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(palette().mid());
        format.setTopMargin(8);
        format.setBottomMargin(8);
        table->setFormat(format);
    }
}

// The size of a picture depends on the width, but a layout measures it only once.
void GuideBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) LayOutAgain();
}

void GuideBrowser::LayOutAgain() {
    document()->markContentsDirty(0, document()->characterCount());
    document()->documentLayout()->documentSize();  // finishes the layout, so that headings can be scrolled to
}

void GuideBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ApplyColors();
}

void GuideBrowser::FollowLink(const QUrl& address) {
    const QUrl full = source().resolved(address);
    if (full.scheme() == QLatin1String("qrc"))
        setSource(full);
    else
        QDesktopServices::openUrl(full);
}

bool GuideBrowser::FindNext(const QString& text) {
    if (find(text)) return true;
    const QTextCursor before = textCursor();
    moveCursor(QTextCursor::Start);
    if (find(text)) return true;
    setTextCursor(before);
    return false;
}

}  // namespace quellbrook
