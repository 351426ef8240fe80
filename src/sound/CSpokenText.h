#ifndef TORNIK_SOUND_CSPOKENTEXT_H
#define TORNIK_SOUND_CSPOKENTEXT_H

#include <QString>

/** The languages that the voice speaks. */
enum class SpeechLanguage
{
    German,
    English
};

/** Puts the texts of the display into words, as a timekeeper would call them out. No sound in here. */
class CSpokenText
{
public:
    /** @return the language of the default QLocale; German, the language of the sources, for all but English.
     */
    static SpeechLanguage programLanguage();

    /**
     * @param text a number ("012": twelve) or a time "mm:ss:zzz" ("00:05:734": five point seven
     *        three four; minutes only when there are any). A "B" in front stands for the best time.
     *        Of anything else the numbers are spoken one by one.
     * @return words with a blank between, empty when there is nothing to say
     */
    static QString words(const QString& text, SpeechLanguage language);
};

#endif
