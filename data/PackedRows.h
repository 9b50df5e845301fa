#pragma once

#include "sql/Row.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// Many rows of one result in little room: about the bytes of their values, against half a kilobyte for a Row. A row is
// made again when it is asked for. Room is taken block by block, so that growing never copies what is there.
class PackedRows {
public:
    // All rows come from one result, so they share its columns. Error 13 for a value that is an object.
    void Add(const Row& row);
    size_t Count() const { return m_count; }
    // position: 0 to Count() - 1.
    Row At(size_t position) const;
    // Gives back what the last block took in advance.
    void ShrinkToFit();

private:
    struct Block {
        std::string bytes;
        std::vector<size_t> starts;
    };

    std::shared_ptr<const ColumnSet> m_columns;
    std::vector<Block> m_blocks;  // each full but the last
    size_t m_count = 0;
};

}  // namespace quellbrook
