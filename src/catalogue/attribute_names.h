// Attribute ids to names, for reports and traces.
#pragma once

#include <cstdint>
#include <span>

namespace zqcatalogue {

struct AttributeNameRow {
  uint32_t id;
  const char* name;
};

// The attribute's name, or null when the id is not in the table. A linear search from the first
// row, so the first of two rows with one id would win.
const char* attributeName(int32_t id);

// The whole id-to-name table in its order, generated from src/catalogue/attributes.tsv.
std::span<const AttributeNameRow> attributeNameTable();

}  // namespace zqcatalogue
