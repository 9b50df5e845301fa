#include "ui/platform/Strings.h"

#include <QStringList>

#include <algorithm>

namespace quellbrook {

QString ToQString(std::string_view text) {
    QString result = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return result;
}

std::string ToUtf8(const QString& text) { return text.toStdString(); }

QString EscapeMnemonic(const QString& caption) {
    QString result = caption;
    result.replace(QLatin1Char('&'), QLatin1String("&&"));
    return result;
}

QString PlainTooltip(const QString& text) {
    if (text.isEmpty()) return QString();
    // Qt wraps even short lines into a narrow column.
    constexpr qsizetype longestUnwrapped = 80;
    const QStringList lines = text.split(QLatin1Char('\n'));
    const bool wraps =
        std::any_of(lines.begin(), lines.end(), [](const QString& line) { return line.size() > longestUnwrapped; });
    QString escaped = text.toHtmlEscaped();
    escaped.replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QStringLiteral("<div style=\"white-space:%1\">%2</div>").arg(wraps ? "pre-wrap" : "pre", escaped);
}

}  // namespace quellbrook
