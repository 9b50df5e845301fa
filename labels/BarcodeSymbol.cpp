#include "labels/BarcodeSymbol.h"

#include "base/Error.h"

#include <algorithm>
#include <memory>

#include <zint.h>

namespace quellbrook {

namespace {

[[noreturn]] void Refuse(const std::string& why) { Raise(ErrorNumber::General, "EncodeCode128", why); }

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

}  // namespace

BarcodeSymbol EncodeCode128(const std::string& text) {
    if (text.empty()) Refuse("The barcode has no text.");
    if (std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 0x7F; }))
        Refuse("The text '" + ReadableText(text) + "' contains a character that a barcode can't encode.");
    const std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)> symbol(ZBarcode_Create(), ZBarcode_Delete);
    if (!symbol) throw std::bad_alloc();
    symbol->symbology = BARCODE_CODE128;
    symbol->input_mode = DATA_MODE;
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    if (ZBarcode_Encode(symbol.get(), bytes, static_cast<int>(text.size())) >= ZINT_ERROR)
        Refuse("The text '" + ReadableText(text) + "' can't be encoded as a barcode: " + symbol->errtxt + ".");
    BarcodeSymbol result;
    result.modules.reserve(static_cast<size_t>(symbol->width));
    for (int module = 0; module < symbol->width; ++module)
        result.modules.push_back((symbol->encoded_data[0][module / 8] >> (module % 8) & 1) != 0);
    return result;
}

std::string ReadableText(const std::string& text) {
    std::string readable;
    std::copy_if(text.begin(), text.end(), std::back_inserter(readable), [](char c) { return !IsControl(c); });
    return readable;
}

}  // namespace quellbrook
