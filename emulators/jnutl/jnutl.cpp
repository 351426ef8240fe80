/**
 * Stand-in for the library `jnutl`: the seven entries that the program looks up, by their plain
 * names, for up to four virtual boxes.
 */
#include "BoxTelegrams.h"

#include <algorithm>
#include <array>
#include <optional>

using BoxTelegrams::Reader;

namespace {

constexpr std::size_t Boxes = 4;
constexpr std::uint16_t InitDone = 0x100;
constexpr std::uint16_t NothingYet = 0;
constexpr std::uint16_t EventComplete = 2;
constexpr std::uint16_t UnknownBox = 4;
constexpr std::uint16_t NoEvent = 5;
constexpr std::uint16_t NoByte = 0xFFFF;
constexpr std::uint32_t UpperHalf = 0x10000;

struct Box
{
    Reader reader{BoxTelegrams::EventBegin, BoxTelegrams::EventSize};
    std::string toSend;
    std::uint32_t timeStamp = 0;
};

std::array<Box, Boxes> boxes;
std::optional<BoxTelegrams::Event> completed;

} // namespace

extern "C" {

struct EventRecord
{
    std::uint32_t code; ///< the upper half is the library's own
    std::uint32_t timeStamp;
};

std::uint16_t InitBoxes()
{
    boxes.fill(Box());
    completed.reset();
    return InitDone;
}

/** A change of the parameters waits until the box asks for data. */
void OpenBox(std::uint16_t box, const std::uint16_t* record)
{
    if (box >= Boxes)
        return;
    BoxTelegrams::Parameters parameters{};
    std::copy_n(record + 2, parameters.size(), parameters.begin());
    boxes[box].toSend = BoxTelegrams::encode(parameters);
}

std::uint16_t RX_data(std::uint16_t box, std::uint8_t byte)
{
    if (box >= Boxes)
        return UnknownBox;
    Reader& reader = boxes[box].reader;
    const Reader::Progress progress = reader.take(byte);
    if (progress == Reader::Unfinished)
        return NothingYet;
    if (progress != Reader::Complete)
        return progress;
    completed = BoxTelegrams::eventOf(reader);
    boxes[box].timeStamp = completed->timeStamp;
    return EventComplete;
}

std::uint16_t Get_Event(EventRecord* record)
{
    if (!completed)
        return NoEvent;
    *record = {UpperHalf | completed->code, completed->timeStamp};
    completed.reset();
    return 0;
}

std::uint32_t Get_TStamp(std::uint16_t box)
{
    return box < Boxes ? boxes[box].timeStamp : 0;
}

std::uint16_t Get_TXDat(std::uint16_t box)
{
    if (box >= Boxes || boxes[box].toSend.empty())
        return NoByte;
    std::string& bytes = boxes[box].toSend;
    const auto byte = static_cast<unsigned char>(bytes.front());
    bytes.erase(0, 1);
    return byte;
}

void Timeout_Check() {}

} // extern "C"
