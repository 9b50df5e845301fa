#include "ui/printing/TextFit.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

constexpr int LongestText = 2000;  // characters
constexpr qreal Slack = 0.01;      // dots

struct BrokenText {
    QStringList lines;
    std::vector<int> starts;
    qreal widest = 0;
    qreal ascent = 0;
    qreal lineHeight = 0;
};

BrokenText Break(const QString& text, const QFont& font, qreal width, QTextOption::WrapMode mode) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(mode);
    layout.setTextOption(option);
    BrokenText broken;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        broken.starts.push_back(line.textStart());
        broken.lines.push_back(text.mid(line.textStart(), line.textLength()).trimmed());
        broken.widest = std::max(broken.widest, line.naturalTextWidth());
        broken.ascent = std::max(broken.ascent, line.ascent());
        broken.lineHeight = std::max(broken.lineHeight, line.height());
    }
    layout.endLayout();
    return broken;
}

bool Fits(const BrokenText& broken, const QSizeF& bounds) {
    return broken.widest <= bounds.width() + Slack &&
           broken.lineHeight * static_cast<qreal>(broken.lines.size()) <= bounds.height() + Slack;
}

FittedText Fitted(const QFont& font, const BrokenText& broken) {
    return {font, broken.lines, broken.ascent, broken.lineHeight};
}

FittedText Shortened(const QString& text, const QFont& font, const QSizeF& bounds) {
    BrokenText broken = Break(text, font, bounds.width(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    const double fitting = std::floor((bounds.height() + Slack) / std::max(broken.lineHeight, 1.0));
    const auto most = std::max<qsizetype>(1, static_cast<qsizetype>(fitting));
    if (broken.lines.size() <= most) return Fitted(font, broken);
    const QString rest = text.mid(broken.starts[static_cast<size_t>(most - 1)]);
    broken.lines = broken.lines.mid(0, most - 1);
    broken.lines.push_back(QFontMetricsF(font).elidedText(rest, Qt::ElideRight, bounds.width()));
    return Fitted(font, broken);
}

QString WithoutControlCharacters(QString text) {
    for (QChar& character : text)
        if (character.category() == QChar::Other_Control) character = QLatin1Char(' ');
    return text.simplified();
}

}  // namespace

FittedText FitText(const QString& text, const QFont& font, int largest, int smallest, const QSizeF& bounds) {
    const QString simple = WithoutControlCharacters(text.left(LongestText));
    QFont sized = font;
    sized.setHintingPreference(QFont::PreferNoHinting);
    for (int size = largest; size > smallest; --size) {
        sized.setPixelSize(size);
        const BrokenText broken = Break(simple, sized, bounds.width(), QTextOption::WordWrap);
        if (Fits(broken, bounds)) return Fitted(sized, broken);
    }
    sized.setPixelSize(std::max(1, std::min(largest, smallest)));
    const BrokenText broken = Break(simple, sized, bounds.width(), QTextOption::WordWrap);
    return Fits(broken, bounds) ? Fitted(sized, broken) : Shortened(simple, sized, bounds);
}

}  // namespace quellbrook
