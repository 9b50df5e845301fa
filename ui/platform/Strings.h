#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace quellbrook {

// The one place where the model's UTF-8 becomes text of the screen, and back. A line end of two characters becomes one.
QString ToQString(std::string_view text);
std::string ToUtf8(const QString& text);

// For captions that know mnemonics (menus, tabs, buttons): "&" doubled, so that it reads as itself.
QString EscapeMnemonic(const QString& caption);

// For tooltips, which otherwise take markup: shows exactly these characters.
QString PlainTooltip(const QString& text);

}  // namespace quellbrook
