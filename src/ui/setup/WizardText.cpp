#include "ui/setup/WizardText.h"

#include "platform/Failure.h"
#include "platform/NumberStyle.h"
#include "platform/NumberText.h"

#include <algorithm>

namespace tavel {

namespace {

constexpr std::string_view header = "//";
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

bool IsHeader(std::string_view line) { return line.substr(0, header.size()) == header; }

// As a number: "//01" is a header of page 1.
bool IsHeaderOf(std::string_view line, Integer iPage) {
    if (!IsHeader(line)) return false;
    const std::string_view text = line.substr(header.size());
    // A failure takes its time, and a file may be full of remarks.
    if (text.find_first_of("&0123456789") == std::string_view::npos) return false;
    try {
        const std::string_view mark = Service<NumberStyle>::Get().DecimalMark();
        const ParsedNumber number = ParseNumber(text, mark);
        return (number.isBits ? static_cast<double>(number.bits) : number.value) == iPage;
    } catch (const Failure&) {
        return false;
    }
}

// Lines end at CR LF, LF or CR.
class Lines {
  public:
    explicit Lines(std::string_view text) : m_left(text) {
        if (m_left.substr(0, utf8Mark.size()) == utf8Mark) m_left.remove_prefix(utf8Mark.size());
    }

    bool AtEnd() const { return m_left.empty(); }

    std::string_view Next() {
        if (AtEnd()) Fail(failure::InputPastEnd);
        const std::size_t end = std::min(m_left.find_first_of("\r\n"), m_left.size());
        const std::string_view line = m_left.substr(0, end);
        const bool isPair = m_left.substr(end, 2) == "\r\n";
        m_left.remove_prefix(std::min(end + (isPair ? 2 : 1), m_left.size()));
        return line;
    }

  private:
    std::string_view m_left;
};

// The header that ends the words is used up: it begins no words of its own.
void TakeWords(Lines& lines, std::string& words) {
    do {
        const std::string_view line = lines.Next();
        if (IsHeader(line)) return;
        words.append(1, '\r').append(line);
    } while (!lines.AtEnd());
}

}  // namespace

std::string WizardWords(std::string_view sFile, Integer iPage) {
    Lines lines(sFile);
    std::string words;
    do {
        if (IsHeaderOf(lines.Next(), iPage)) TakeWords(lines, words);
    } while (!lines.AtEnd());
    return words;
}

}  // namespace tavel
