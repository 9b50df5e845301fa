#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace quellbrook {

// Conversion between the model's UTF-8 and QString, used everywhere. A CRLF line end becomes LF in a QString.
QString ToQString(std::string_view text);
std::string ToUtf8(const QString& text);

// For captions with mnemonics (menus, tabs, buttons): doubles "&", so that it is displayed literally.
QString EscapeMnemonic(const QString& caption);

// For tooltips, which interpret markup: escapes the text, so that it is displayed literally. Lines of up to 80
// characters are not wrapped.
QString PlainTooltip(const QString& text);

}  // namespace quellbrook
