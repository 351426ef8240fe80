#include "sound/CSpokenText.h"

#include <QLocale>
#include <QTest>

class tst_CSpokenText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void speaks_data();
    void speaks();
    void programLanguage_data();
    void programLanguage();
};

void tst_CSpokenText::speaks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("german");
    QTest::addColumn<QString>("english");

    const auto row = [](const char* name, const char* text, const char* german, const char* english) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(german)
                            << QString::fromUtf8(english);
    };
    row("zero", "000", "null", "zero");
    row("one", "001", "eins", "one");
    row("twelve", "012", "zwölf", "twelve");
    row("sixteen", "016", "sechzehn", "sixteen");
    row("seventeen", "017", "siebzehn", "seventeen");
    row("twenty", "020", "zwanzig", "twenty");
    row("twenty-one", "021", "einundzwanzig", "twenty-one");
    row("thirty-three", "033", "dreiunddreißig", "thirty-three");
    row("seventy-six", "076", "sechsundsiebzig", "seventy-six");
    row("ninety-nine", "099", "neunundneunzig", "ninety-nine");
    row("hundred", "100", "einhundert", "one hundred");
    row("hundred and one", "101", "einhunderteins", "one hundred and one");
    row("hundred and eleven", "111", "einhundertelf", "one hundred and eleven");
    row("two hundred", "200", "zweihundert", "two hundred");
    row("last of three digits", "999", "neunhundertneunundneunzig", "nine hundred and ninety-nine");
    row("thousand", "1000", "eintausend", "one thousand");
    row("thousand and one", "1001", "eintausendeins", "one thousand and one");
    row("four digits", "1234", "eintausendzweihundertvierunddreißig",
        "one thousand two hundred and thirty-four");
    row("hundred and one thousand", "101000", "einhunderteintausend", "one hundred and one thousand");
    row("more than six digits", "1234567", "eins zwei drei vier fünf sechs sieben",
        "one two three four five six seven");
    row("more digits than an integer", "99999999999",
        "neun neun neun neun neun neun neun neun neun neun neun",
        "nine nine nine nine nine nine nine nine nine nine nine");
    row("many leading zeros", "0000000012", "zwölf", "twelve");
    row("negative", " -1", "minus eins", "minus one");

    row("time", "00:05:734", "fünf Komma sieben drei vier", "five point seven three four");
    row("time of one second", "00:01:000", "eins Komma null null null", "one point zero zero zero");
    row("time of nothing", "00:00:000", "null Komma null null null", "zero point zero zero zero");
    row("time of twelve seconds", "00:12:050", "zwölf Komma null fünf null", "twelve point zero five zero");
    row("time of one minute", "01:02:034", "eine Minute zwei Komma null drei vier",
        "one minute two point zero three four");
    row("time of many minutes", "21:59:999", "einundzwanzig Minuten neunundfünfzig Komma neun neun neun",
        "twenty-one minutes fifty-nine point nine nine nine");
    row("best time", "B00:05:734", "Bestzeit fünf Komma sieben drei vier",
        "best time five point seven three four");
    row("best time with its minute", "B01:02:034", "Bestzeit eine Minute zwei Komma null drei vier",
        "best time one minute two point zero three four");
    row("best number", "B012", "Bestzeit zwölf", "best time twelve");

    row("nothing", "", "", "");
    row("blanks", "   ", "", "");
    row("separators only", "--:--:---", "", "");
    row("no time, but numbers", "05:734", "fünf siebenhundertvierunddreißig",
        "five seven hundred and thirty-four");
    row("words are left out", "abc 12 äöü", "zwölf", "twelve");
    row("only a capital marks the best time", "b012", "zwölf", "twelve");
}

void tst_CSpokenText::speaks()
{
    QFETCH(QString, text);
    QTEST(CSpokenText::words(text, SpeechLanguage::German), "german");
    QTEST(CSpokenText::words(text, SpeechLanguage::English), "english");
}

void tst_CSpokenText::programLanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("english");
    QTest::newRow("German") << "de_DE" << false;
    QTest::newRow("English") << "en_GB" << true;
    QTest::newRow("American") << "en_US" << true;
    QTest::newRow("French has German texts") << "fr_FR" << false;
    QTest::newRow("unknown") << "xx" << false;
}

void tst_CSpokenText::programLanguage()
{
    QFETCH(QString, locale);
    QFETCH(bool, english);
    QLocale::setDefault(QLocale(locale));
    QCOMPARE(CSpokenText::programLanguage() == SpeechLanguage::English, english);
}

QTEST_GUILESS_MAIN(tst_CSpokenText)
#include "tst_CSpokenText.moc"
