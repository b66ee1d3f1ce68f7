/// G-code of engraved rows.
#pragma once

#include "machine/EngraveRow.h"
#include "machine/GcodeOutput.h"
#include "machine/OutputText.h"

#include <array>
#include <string>

namespace shapedocument {

/// Writes rows one behind the other: G1 where something burns, with an S word at every change, G0 where nothing does.
/// Words that do not change are left out, and so are blanks: machines are fed over slow serial lines.
class GcodeRows
{
public:
    /// height: mm, the document's y that becomes 0; not used when y goes down.
    GcodeRows(OutputText& text, const GcodeOptions& options, double height);

    /// Writes the lines that switch the laser on before the first row; End those that switch it off.
    void Begin();
    void Write(const EngraveRow& row);
    void End();

    const RowCounts& Counts() const { return m_counts; }

private:
    /// A word as it is written.
    struct Word
    {
        explicit Word(const std::string& text = {});
        std::array<char, kLongestNumber> letters{};
        size_t size;
    };

    void Count(const EngraveRow& row);
    void BeginShape(const EngraveRow& row);
    void GoTo(double x, double y);
    void Jump(double x);
    void ForgetPower();
    void Burn(double x, unsigned char grey);
    char* PutMove(char* to, char motion, double x);
    char* PutPower(char* to, unsigned char grey);

    OutputText& m_text;
    const GcodeOptions& m_options;
    double m_height;
    std::array<Word, 256> m_powers; ///< S words by grey
    Word m_feed;                    ///< F word; empty once it has been written
    size_t m_shape = 0;
    char m_motion = ' ';
    double m_x = 0;
    int m_grey = 255; ///< of the last S word, or kUnknown
    RowCounts m_counts;
};

} // namespace shapedocument
