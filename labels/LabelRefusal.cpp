#include "labels/LabelRefusal.h"

#include "base/Error.h"

namespace quellbrook {

void RefuseTemplate(const std::string& why) {
    Raise(ErrorNumber::General, "LabelEngine.Parse", "The label template " + why);
}

void RefuseField(const std::string& name, const std::string& why) {
    Raise(ErrorNumber::General, "BarcodeLabel.SetField", "The template field '" + name + "' " + why);
}

std::string Quoted(std::string_view text) {
    constexpr size_t longest = 60;
    return "'" + std::string(text.substr(0, longest)) + (text.size() > longest ? "...'" : "'");
}

}  // namespace quellbrook
