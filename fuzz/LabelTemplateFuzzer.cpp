// Any text is refused as a label template with a short message, or results in a label of a valid size. Its fields are
// inside the label and are removed from its drawing.

#include "base/Error.h"
#include "fuzz/Fail.h"
#include "labels/LabelTemplate.h"

#include <cstdint>
#include <string>

using namespace quellbrook;
using quellbrook::fuzz::Check;

namespace {

const LabelTemplate::Fields fields = {{"barcode", "\x02P0000000012\x03"}, {"name", "a name"}, {"place", "a place"}};

void CheckArea(const LabelArea& area, const FilledLabel& label, const std::string& text) {
    constexpr double slack = 0.11;
    const LabelBox& box = area.box;
    Check(area.quarterTurns >= 0 && area.quarterTurns <= 3, "The rotation is not a quarter turn", text);
    Check(box.width > 0 && box.height > 0, "A field has no size", text);
    Check(box.left >= -slack && box.top >= -slack, "A field lies outside of the label", text);
    Check(box.left + box.width <= label.width + slack, "A field lies outside of the label", text);
    Check(box.top + box.height <= label.height + slack, "A field lies outside of the label", text);
}

bool HasField(const pugi::xml_node& element) {
    for (const pugi::xml_node child : element.children()) {
        const std::string id = child.attribute("id").value();
        for (const auto& [name, value] : fields)
            if (id == name) return true;
        if (HasField(child)) return true;
    }
    return false;
}

void Read(const std::string& text) {
    try {
        const FilledLabel label = LabelTemplate(text).Fill(fields);
        Check(label.width >= 5 && label.width <= 1000, "The width is out of range", text);
        Check(label.height >= 5 && label.height <= 1000, "The height is out of range", text);
        Check(label.texts.size() + label.barcodes.size() >= 1, "No field was filled", text);
        for (const LabelText& field : label.texts) CheckArea(field.area, label, text);
        for (const LabelBarcode& field : label.barcodes) CheckArea(field.area, label, text);
        for (const LabelText& field : label.texts)
            Check(field.size > 0 && field.size <= 100, "The font has no size", text);
        pugi::xml_document drawing;
        Check(drawing.load_string(label.drawing.c_str()), "The drawing is not well-formed", text);
        Check(!HasField(drawing.document_element()), "A field is left in the drawing", text);
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", text);
        Check(!error.Description().empty() && error.Description().size() < 300, "The message cannot be shown", text);
    }
}

// Parts of drawings in any order, with bytes of the input between them, to reach valid labels quickly.
std::string AsDrawing(const uint8_t* data, size_t size) {
    static const char* const parts[] = {"<text id='name' x='5' y='9' font-size='4'>",
                                        "</text>",
                                        "<rect id='name_box' x='2' y='3' width='9' height='5'/>",
                                        "<rect id='barcode' width='60' height='9' transform='rotate(0)'/>",
                                        "<g transform='translate(1,2) scale(.5)'>",
                                        "</g>",
                                        "<g style='font-size:3px;font-weight:bold'>",
                                        "<rect id='place' x='1' y='1' width='50' height='4'/>",
                                        "<text id='place' y='20' text-anchor='end' x='50'><tspan x='40' y='9'>",
                                        "</tspan></text>",
                                        "<path id='name'/>",
                                        "<g transform='rotate(90 10 10)'>",
                                        "<g transform='matrix(",
                                        ")'>",
                                        "1",
                                        "e9",
                                        " ",
                                        "-",
                                        "<!--",
                                        "-->",
                                        "<text id='name' transform='rotate(-90)' x='-40' y='9'/>",
                                        "<![CDATA[",
                                        "]]>",
                                        "&amp;",
                                        "'",
                                        ">",
                                        "<style>",
                                        "</style>",
                                        ".a{font-size:5px}",
                                        "#name{fill:red;}",
                                        "text{",
                                        "}",
                                        "<g class='a b'>",
                                        "/*",
                                        "*/",
                                        "@"};
    constexpr size_t count = sizeof parts / sizeof *parts;
    std::string text = "<svg width='100mm' height='60mm' viewBox='0 0 100 60'>";
    for (size_t k = 0; k < size; ++k) {
        if (data[k] < 2 * count)
            text += parts[data[k] % count];
        else
            text += static_cast<char>(data[k]);
    }
    return text + "</svg>";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Read(std::string(reinterpret_cast<const char*>(data), size));
    Read(AsDrawing(data, size));
    return 0;
}
