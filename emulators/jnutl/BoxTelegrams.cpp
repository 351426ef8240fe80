#include "BoxTelegrams.h"

namespace {

void append(std::string& bytes, std::uint32_t number, int size)
{
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.push_back(char((number >> unsigned(shift)) & 0xFFU));
}

char sumOf(const std::string& bytes, std::size_t size)
{
    unsigned sum = 0;
    for (std::size_t i = 0; i < size; ++i)
        sum += static_cast<unsigned char>(bytes[i]);
    return char(sum & 0xFFU);
}

} // namespace

std::string BoxTelegrams::encode(const Event& event)
{
    std::string bytes(1, char(EventBegin));
    append(bytes, event.code, 2);
    append(bytes, event.timeStamp, 4);
    return bytes + sumOf(bytes, bytes.size());
}

std::string BoxTelegrams::encode(const Parameters& parameters)
{
    std::string bytes(1, char(ParametersBegin));
    for (const std::uint16_t word : parameters)
        append(bytes, word, 2);
    return bytes + sumOf(bytes, bytes.size());
}

BoxTelegrams::Reader::Progress BoxTelegrams::Reader::take(std::uint8_t byte)
{
    if (m_bytes.size() == m_size)
        m_bytes.clear();
    if (m_bytes.empty() && byte != m_begin)
        return NoBegin;
    m_bytes.push_back(char(byte));
    if (m_bytes.size() < m_size)
        return Unfinished;
    return m_bytes.back() == sumOf(m_bytes, m_size - 1) ? Complete : WrongSum;
}

std::uint32_t BoxTelegrams::Reader::number(std::size_t from, std::size_t size) const
{
    std::uint32_t number = 0;
    for (std::size_t i = from; i < from + size && i < m_bytes.size(); ++i)
        number = (number << 8U) | static_cast<unsigned char>(m_bytes[i]);
    return number;
}

BoxTelegrams::Event BoxTelegrams::eventOf(const Reader& reader)
{
    return {std::uint16_t(reader.number(1, 2)), reader.number(3, 4)};
}

BoxTelegrams::Parameters BoxTelegrams::parametersOf(const Reader& reader)
{
    Parameters parameters{};
    for (std::size_t i = 0; i < parameters.size(); ++i)
        parameters[i] = std::uint16_t(reader.number(1 + 2 * i, 2));
    return parameters;
}
