// Texts of the gas catalogue: names and composition texts compare without regard to ASCII
// case, hash with h*33 + the upper-cased byte, and are trimmed of C white space.
#ifndef TAVLIB6_GAS_TEXT_H
#define TAVLIB6_GAS_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#ifdef _WIN32
#include <clocale>
#else
#include <langinfo.h>
#endif

namespace tvl {

// The decimal point of the C locale the host set. localeconv fills one static structure for the
// whole process, a race between objects used on several threads; nl_langinfo only reads.
inline char hostDecimalPoint() {
#ifdef _WIN32
    return *std::localeconv()->decimal_point;
#else
    return *nl_langinfo(RADIXCHAR);
#endif
}

inline char upperAscii(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

// Blank, tab, line feed, vertical tab, form feed, carriage return; never locale-dependent.
inline bool isGasTextSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The byte is taken upper-cased and as a signed 8-bit number, all in wrapping 32-bit arithmetic.
inline std::uint32_t hashText(std::string_view text) {
    std::uint32_t h = 0;
    for (const char c : text)
        h = h * 33u + static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<std::int8_t>(upperAscii(c))));
    return h;
}

inline bool sameText(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t k = 0; k < a.size(); ++k)
        if (upperAscii(a[k]) != upperAscii(b[k])) return false;
    return true;
}

inline std::string_view trimmed(std::string_view text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && isGasTextSpace(text[begin])) ++begin;
    while (end > begin && isGasTextSpace(text[end - 1])) --end;
    return text.substr(begin, end - begin);
}

// A text argument of an export; a null pointer counts as the empty text.
inline std::string_view argumentText(const char* text) { return text != nullptr ? std::string_view(text) : std::string_view(); }

}  // namespace tvl

#endif
