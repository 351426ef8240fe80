#include "sound/CSpokenText.h"

#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int LongestText = 64;
/** A number with more digits is spoken digit by digit. */
constexpr int MostDigits = 6;

const char* const germanOnes[] = {"null",     "ein",      "zwei",     "drei",     "vier",
                                  "fünf",     "sechs",    "sieben",   "acht",     "neun",
                                  "zehn",     "elf",      "zwölf",    "dreizehn", "vierzehn",
                                  "fünfzehn", "sechzehn", "siebzehn", "achtzehn", "neunzehn"};
const char* const germanTens[] = {"",        "",        "zwanzig", "dreißig", "vierzig",
                                  "fünfzig", "sechzig", "siebzig", "achtzig", "neunzig"};
const char* const englishOnes[] = {"zero",    "one",     "two",       "three",    "four",
                                   "five",    "six",     "seven",     "eight",    "nine",
                                   "ten",     "eleven",  "twelve",    "thirteen", "fourteen",
                                   "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
const char* const englishTens[] = {"",      "",      "twenty",  "thirty", "forty",
                                   "fifty", "sixty", "seventy", "eighty", "ninety"};

/** 1 to 99 as the front part of a longer word: "ein", "einundzwanzig". */
QString germanBelow100(int number)
{
    if (number < 20)
        return QString::fromUtf8(germanOnes[number]);
    QString word;
    if (number % 10 > 0)
        word = QString::fromUtf8(germanOnes[number % 10]) + QStringLiteral("und");
    return word + QString::fromUtf8(germanTens[number / 10]);
}

/** 1 to 999999, as a front part, too: "einhundertein". */
QString germanStem(int number)
{
    QString word;
    if (number >= 1000)
        word += germanStem(number / 1000) + QStringLiteral("tausend");
    number %= 1000;
    if (number >= 100)
        word += QString::fromUtf8(germanOnes[number / 100]) + QStringLiteral("hundert");
    if (number % 100 > 0)
        word += germanBelow100(number % 100);
    return word;
}

QString germanNumber(int number)
{
    if (number == 0)
        return QString::fromUtf8(germanOnes[0]);
    // The one at the end is the only one that changes: "einhunderteins", but "einundzwanzig".
    return germanStem(number) + (number % 100 == 1 ? QStringLiteral("s") : QString());
}

QString englishBelow100(int number)
{
    if (number < 20)
        return QString::fromUtf8(englishOnes[number]);
    const QString tens = QString::fromUtf8(englishTens[number / 10]);
    return number % 10 == 0 ? tens : tens + QLatin1Char('-') + QString::fromUtf8(englishOnes[number % 10]);
}

QString englishNumber(int number)
{
    QStringList words;
    if (number >= 1000)
        words << englishNumber(number / 1000) << QStringLiteral("thousand");
    const int rest = number % 1000;
    if (rest >= 100)
        words << QString::fromUtf8(englishOnes[rest / 100]) << QStringLiteral("hundred");
    if (rest % 100 > 0 && !words.isEmpty())
        words << QStringLiteral("and");
    if (rest % 100 > 0 || words.isEmpty())
        words << englishBelow100(rest % 100);
    return words.join(QLatin1Char(' '));
}

QString numberWord(int number, SpeechLanguage language)
{
    return language == SpeechLanguage::English ? englishNumber(number) : germanNumber(number);
}

QStringList digitWords(const QString& digits, SpeechLanguage language)
{
    QStringList words;
    for (const QChar digit : digits)
        words << numberWord(digit.digitValue(), language);
    return words;
}

QStringList numberWords(QString digits, SpeechLanguage language)
{
    static const QRegularExpression leadingZeros(QStringLiteral("^0+(?=.)"));
    digits.remove(leadingZeros);
    if (digits.size() > MostDigits)
        return digitWords(digits, language);
    return {numberWord(digits.toInt(), language)};
}

QStringList minuteWords(const QString& digits, SpeechLanguage language)
{
    const bool english = language == SpeechLanguage::English;
    switch (digits.toInt()) {
    case 0:
        return {};
    case 1:
        return {english ? QStringLiteral("one minute") : QStringLiteral("eine Minute")};
    default:
        return numberWords(digits, language)
               << (english ? QStringLiteral("minutes") : QStringLiteral("Minuten"));
    }
}

QStringList timeWords(const QRegularExpressionMatch& time, SpeechLanguage language)
{
    return minuteWords(time.captured(1), language) + numberWords(time.captured(2), language)
           << (language == SpeechLanguage::English ? QStringLiteral("point") : QStringLiteral("Komma"))
           << digitWords(time.captured(3), language);
}

QStringList allNumberWords(const QString& text, SpeechLanguage language)
{
    static const QRegularExpression number(QStringLiteral("(-?)([0-9]+)"));
    QStringList words;
    for (auto found = number.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        if (!match.captured(1).isEmpty())
            words << QStringLiteral("minus");
        words << numberWords(match.captured(2), language);
    }
    return words;
}

} // namespace

SpeechLanguage CSpokenText::programLanguage()
{
    return QLocale().language() == QLocale::English ? SpeechLanguage::English : SpeechLanguage::German;
}

QString CSpokenText::words(const QString& text, SpeechLanguage language)
{
    static const QRegularExpression time(QStringLiteral("^([0-9]{1,6}):([0-9]{2}):([0-9]{3})$"));
    QString rest = text.left(LongestText).trimmed();
    QStringList words;
    if (rest.startsWith(QLatin1Char('B'))) {
        words << (language == SpeechLanguage::English ? QStringLiteral("best time")
                                                      : QStringLiteral("Bestzeit"));
        rest.remove(0, 1);
    }
    const QRegularExpressionMatch match = time.match(rest);
    words << (match.hasMatch() ? timeWords(match, language) : allNumberWords(rest, language));
    return words.join(QLatin1Char(' '));
}
