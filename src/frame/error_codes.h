// Error codes of the library and their texts. Model functions throw a code as a plain int;
// only the call frame catches it and stores it as the last error.
#ifndef TAVLIB6_ERROR_CODES_H
#define TAVLIB6_ERROR_CODES_H

#include <cstdint>

namespace tvl {

constexpr int kNoError = 0;
constexpr int kBadParameters = 1;
constexpr int kOutOfRange = 2;
constexpr int kRootNotFound = 3;
constexpr int kUnknownArea = 4;
constexpr int kNotImplemented = 8;
constexpr int kOutOfMemory = 9;
constexpr int kSyntaxError = 11;
constexpr int kGasNotFound = 12;

// The text of a code as the string resource with id code + 115 holds it, or nullptr for a
// code without a text (5, 6, 7, 10 and anything outside 0 to 12).
const char* errorText(int code);

// Copies the text of a code into a buffer of `capacity` characters, narrow or UTF-16, always
// terminated; a code without a text leaves the empty string.
void loadErrorText(int code, char* buffer, int capacity);
void loadErrorText(int code, std::uint16_t* buffer, int capacity);

}  // namespace tvl

#endif
