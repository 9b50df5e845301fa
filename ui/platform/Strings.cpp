#include "ui/platform/Strings.h"

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
    QString escaped = text.toHtmlEscaped();
    escaped.replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QLatin1String("<span style=\"white-space:pre-wrap\">") + escaped + QLatin1String("</span>");
}

}  // namespace quellbrook
