#ifndef TORNIK_EMULATORS_BOXTELEGRAMS_H
#define TORNIK_EMULATORS_BOXTELEGRAMS_H

#include <array>
#include <cstdint>
#include <string>

/**
 * The protocol between the virtual box and the stand-in library, made up for them: the real one is
 * a secret of the real library. A telegram is a begin byte, its contents, most significant byte
 * first, and the sum of all that in one byte.
 */
namespace BoxTelegrams {

constexpr std::uint8_t EventBegin = 0xB0;
constexpr std::uint8_t ParametersBegin = 0xC0;
constexpr std::size_t EventSize = 8;       ///< begin, code, time stamp, sum
constexpr std::size_t ParametersSize = 12; ///< begin, five words, sum

struct Event
{
    std::uint16_t code = 0;
    std::uint32_t timeStamp = 0; ///< ticks, 4800 a second
};

/** The words 2 to 6 of the record of a box. */
using Parameters = std::array<std::uint16_t, 5>;

std::string encode(const Event& event);
std::string encode(const Parameters& parameters);

/** Puts telegrams of one kind together, byte by byte. */
class Reader
{
public:
    enum Progress
    {
        Unfinished,
        NoBegin, ///< the byte begins no telegram
        Complete,
        WrongSum
    };

    Reader(std::uint8_t begin, std::size_t size) : m_begin(begin), m_size(size) {}

    Progress take(std::uint8_t byte);
    /** @return bytes of the telegram last completed, as a number. */
    std::uint32_t number(std::size_t from, std::size_t size) const;

private:
    std::uint8_t m_begin;
    std::size_t m_size;
    std::string m_bytes;
};

Event eventOf(const Reader& reader);
Parameters parametersOf(const Reader& reader);

} // namespace BoxTelegrams

#endif
