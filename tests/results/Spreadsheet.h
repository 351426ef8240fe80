#ifndef TORNIK_TESTS_RESULTS_SPREADSHEET_H
#define TORNIK_TESTS_RESULTS_SPREADSHEET_H

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>
#include <QVector>
#include <QXmlStreamReader>

/** A cell as the spreadsheet program has understood it. */
struct SpreadsheetCell
{
    QString type;  ///< "string", "float", "time"; empty for an empty cell
    QString value; ///< of a number or a time
    QString text;  ///< what the user sees
};

/** A sheet that LibreOffice has read from a CSV file and written down as flat XML. */
class Spreadsheet
{
public:
    static QString program() { return QStandardPaths::findExecutable(QStringLiteral("soffice")); }

    /**
     * Opens files as a German user does, separated by ";", in UTF-8.
     * @param files in the working directory; each gets one ending in ".fods" beside it
     */
    static bool open(const QStringList& files)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(program(),
                      QStringList{"--headless",
                                  "-env:UserInstallation=" +
                                      QUrl::fromLocalFile(QDir::current().filePath("profile")).toString(),
                                  "--infilter=Text - txt - csv (StarCalc):59,34,76,1,,1031", "--convert-to",
                                  "fods"} +
                          files);
        constexpr int patience = 300000; // milliseconds
        return process.waitForFinished(patience) && process.exitCode() == 0;
    }

    /** @param name of the CSV file, without its ending */
    explicit Spreadsheet(const QString& name)
    {
        QFile file(name + ".fods");
        if (!file.open(QIODevice::ReadOnly))
            return;
        QXmlStreamReader xml(&file);
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("table-row"))
                readRow(xml);
        }
    }

    int rowCount() const { return m_rows.size(); }
    /** Row and column from 0; a cell that there isn't is empty. */
    SpreadsheetCell cell(int column, int row) const { return m_rows.value(row).value(column); }
    QString text(int column, int row) const { return cell(column, row).text; }

private:
    static int repeated(const QXmlStreamReader& xml, const char* attribute)
    {
        const QString value = attributeOf(xml, attribute);
        return value.isEmpty() ? 1 : value.toInt();
    }
    static QString attributeOf(const QXmlStreamReader& xml, const char* name)
    {
        for (const QXmlStreamAttribute& attribute : xml.attributes()) {
            if (attribute.name() == QLatin1String(name) && attribute.prefix() != QLatin1String("calcext"))
                return attribute.value().toString();
        }
        return QString();
    }

    void readRow(QXmlStreamReader& xml)
    {
        const int times = repeated(xml, "number-rows-repeated");
        QVector<SpreadsheetCell> cells;
        while (xml.readNextStartElement()) {
            const int columns = repeated(xml, "number-columns-repeated");
            const SpreadsheetCell cell = readCell(xml);
            constexpr int sensible = 100; // the rest of the sheet is one long empty row
            for (int i = 0; i < qMin(columns, sensible); ++i)
                cells << cell;
        }
        constexpr int sensible = 100;
        for (int i = 0; i < qMin(times, sensible); ++i)
            m_rows << cells;
    }

    static SpreadsheetCell readCell(QXmlStreamReader& xml)
    {
        SpreadsheetCell cell;
        cell.type = attributeOf(xml, "value-type");
        cell.value = attributeOf(xml, cell.type == QLatin1String("time") ? "time-value" : "value");
        while (xml.readNextStartElement())
            cell.text += readText(xml);
        return cell;
    }
    static QString readText(QXmlStreamReader& xml)
    {
        QString text;
        while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::EndElement) {
            if (xml.isCharacters())
                text += xml.text();
            if (xml.isStartElement()) {
                if (xml.name() == QLatin1String("tab"))
                    text += '\t';
                if (xml.name() == QLatin1String("s"))
                    text += ' ';
                xml.skipCurrentElement();
            }
        }
        return text;
    }

    QVector<QVector<SpreadsheetCell>> m_rows;
};

#endif
