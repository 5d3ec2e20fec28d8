#pragma once

// The fields of a comma-delimited text, as a general delimited text reader gives them: a field
// ends at a comma or at a line end (CR LF, LF alone or CR alone), blanks around a field are
// dropped, and a field in double quotes keeps its commas and blanks and loses the quotes (text
// after the closing quote, up to the next delimiter, is dropped). A line with nothing on it
// gives no field; a comma at the end of a line gives an empty one.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

struct DelimitedField {
    std::string text;
    bool quoted = false;
};

class DelimitedFields {
public:
    explicit DelimitedFields(std::string_view text);

    std::size_t Count() const { return fields_.size(); }
    const DelimitedField& At(std::size_t i) const { return fields_.at(i); }

    // A cursor over the fields: Next gives the field at the cursor and moves past it.
    bool AtEnd() const { return next_ >= fields_.size(); }
    std::size_t Position() const { return next_; }
    void Seek(std::size_t position) { next_ = position; }
    const DelimitedField& Peek() const { return fields_.at(next_); }
    const DelimitedField& Next() { return fields_.at(next_++); }

private:
    std::vector<DelimitedField> fields_;
    std::size_t next_ = 0;
};

} // namespace corvane
