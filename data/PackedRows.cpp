#include "data/PackedRows.h"

#include <cstring>

namespace quellbrook {

namespace {

constexpr size_t rowsOfABlock = 256;

enum class Kind : char { Empty, Null, False, True, Integer, Float, Decimal, Text, Moment };

template <typename T>
void Append(std::string& bytes, const T& plain) {
    bytes.append(reinterpret_cast<const char*>(&plain), sizeof plain);
}

void AppendValue(std::string& bytes, const TaggedValue& value) {
    const auto mark = [&](Kind kind) { bytes.push_back(static_cast<char>(kind)); };
    if (value.IsEmpty()) {
        mark(Kind::Empty);
    } else if (value.IsNull()) {
        mark(Kind::Null);
    } else if (const auto* flag = value.If<bool>()) {
        mark(*flag ? Kind::True : Kind::False);
    } else if (const auto* integer = value.If<int32_t>()) {
        mark(Kind::Integer);
        Append(bytes, *integer);
    } else if (const auto* number = value.If<double>()) {
        mark(Kind::Float);
        Append(bytes, *number);
    } else if (const auto* decimal = value.If<Decimal>()) {
        mark(Kind::Decimal);
        Append(bytes, decimal->units);
        Append(bytes, decimal->scale);
    } else if (const auto* text = value.If<std::string>()) {
        mark(Kind::Text);
        Append(bytes, static_cast<uint32_t>(text->size()));
        bytes.append(*text);
    } else if (const auto* moment = value.If<DateTime>()) {
        mark(Kind::Moment);
        Append(bytes, moment->milliseconds);
    } else {
        RaiseTypeMismatch();
    }
}

class Unpacker {
public:
    explicit Unpacker(const char* at) : m_at(at) {}

    TaggedValue Next() {
        switch (Take<Kind>()) {
        case Kind::Empty: return Empty();
        case Kind::Null: return Null();
        case Kind::False: return false;
        case Kind::True: return true;
        case Kind::Integer: return Take<int32_t>();
        case Kind::Float: return Take<double>();
        case Kind::Decimal: {
            const auto units = Take<int64_t>();
            return Decimal{units, Take<uint8_t>()};
        }
        case Kind::Text: {
            const auto size = Take<uint32_t>();
            m_at += size;
            return std::string(m_at - size, size);
        }
        case Kind::Moment: return DateTime{Take<int64_t>()};
        }
        RaiseTypeMismatch();
    }

private:
    template <typename T>
    T Take() {
        T plain;
        std::memcpy(&plain, m_at, sizeof plain);
        m_at += sizeof plain;
        return plain;
    }

    const char* m_at;
};

}  // namespace

void PackedRows::Add(const Row& row) {
    if (!m_columns) m_columns = std::make_shared<ColumnSet>(row.Columns().Names());
    if (m_count == m_blocks.size() * rowsOfABlock) {
        ShrinkToFit();
        m_blocks.emplace_back();
    }
    Block& block = m_blocks.back();
    const size_t start = block.bytes.size();
    for (size_t i = 0; i < m_columns->Names().size(); ++i) AppendValue(block.bytes, row.At(static_cast<int>(i)));
    block.starts.push_back(start);
    ++m_count;
}

Row PackedRows::At(size_t position) const {
    const Block& block = m_blocks[position / rowsOfABlock];
    Unpacker unpacker(block.bytes.data() + block.starts[position % rowsOfABlock]);
    std::vector<TaggedValue> values;
    values.reserve(m_columns->Names().size());
    for (size_t i = 0; i < m_columns->Names().size(); ++i) values.push_back(unpacker.Next());
    return Row(m_columns, std::move(values));
}

void PackedRows::ShrinkToFit() {
    if (m_blocks.empty()) return;
    m_blocks.back().bytes.shrink_to_fit();
    m_blocks.back().starts.shrink_to_fit();
}

}  // namespace quellbrook
