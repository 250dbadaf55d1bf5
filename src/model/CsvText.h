#pragma once
// Text for the CSV files the exports write: a field holding a comma, a quote or a line break
// is quoted, its quotes doubled, so that a spreadsheet reads every field back whole.
#include <string>

class CsvText {
public:
    static std::string field(const std::string& text);
};
