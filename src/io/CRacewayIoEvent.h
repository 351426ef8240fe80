#ifndef TORNIK_IO_CRACEWAYIOEVENT_H
#define TORNIK_IO_CRACEWAYIOEVENT_H

#include <QEvent>

#include <cstddef>

/** The raw event of a hardware source, posted from a reading thread to its interface object. */
class CRacewayIoEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = QEvent::Type(1026);
    static constexpr std::size_t TextSize = 32;

    /**
     * @param value port register, report or event code, as the source gives it
     * @param time time stamp, as the source gives it
     */
    CRacewayIoEvent(int value, int time) : QEvent(EventType), m_value(value), m_time(time) {}

    int value() const { return m_value; }
    int time() const { return m_time; }

    /** @return the NUL-ended frame of a serial source; empty for all others. */
    const char* text() const { return m_text; }
    /** Copies the frame, cut to 31 characters. */
    void setText(const char* text);

private:
    int m_value;
    int m_time;
    char m_text[TextSize] = {};
};

#endif
