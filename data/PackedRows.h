#pragma once

#include "sql/Row.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// Compact storage for many rows of one result: a row takes little more than the bytes of its values, while a Row takes
// half a kilobyte. At unpacks a row. Memory is allocated in blocks, so growing never copies rows.
class PackedRows {
public:
    // All rows come from one result, so they share its columns. Error 13 for a value that is an object.
    void Add(const Row& row);
    size_t Count() const { return m_count; }
    // position: 0 to Count() - 1.
    Row At(size_t position) const;
    // Frees the unused memory of the last block.
    void ShrinkToFit();

private:
    struct Block {
        std::string bytes;
        std::vector<size_t> starts;
    };

    std::shared_ptr<const ColumnSet> m_columns;
    std::vector<Block> m_blocks;  // all full except the last
    size_t m_count = 0;
};

}  // namespace quellbrook
