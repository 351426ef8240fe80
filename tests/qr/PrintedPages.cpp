#include "qr/PrintedPages.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int Resolution = 192;   // dots an inch
constexpr int ShortestSide = 8;   // of a cell that is empty
constexpr int ShortestLine = 160; // of the table; nothing else on the page is dark that far
constexpr int Dark = 190;         // the lines of the table are grey

const QStringList ForeignReader{"--quiet", "--nodbus", "--raw", "-Sdisable", "-Sqrcode.enable"};

/** @return the spans between the lines of a frame. @param isLine tells of each place whether a line runs
 * there */
template <typename IsLine>
QVector<QPair<int, int>> spansBetween(int begin, int end, IsLine isLine)
{
    QVector<QPair<int, int>> spans;
    int last = -1;
    for (int place = begin; place < end; ++place) {
        if (!isLine(place))
            continue;
        if (last >= 0 && place - last > ShortestSide)
            spans.append({last + 1, place - 1});
        last = place;
    }
    return spans;
}

bool isDark(const QImage& image, int x, int y)
{
    return image.constScanLine(y)[x] < Dark;
}

/** @return the longest run of dark in a row of pixels. */
int longestRun(const QImage& image, int y)
{
    int longest = 0;
    for (int x = 0, run = 0; x < image.width(); ++x) {
        run = isDark(image, x, y) ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

bool isColumnDark(const QImage& image, int x, const QPair<int, int>& rows)
{
    for (int y = rows.first; y <= rows.second; ++y) {
        if (!isDark(image, x, y))
            return false;
    }
    return true;
}

} // namespace

PrintedPages::PrintedPages(const QString& pdf) : m_pdf(pdf)
{
    lines("pdftoppm", {"-png", "-r", QString::number(Resolution), pdf, m_directory.filePath("page")});
    for (const QString& name : QDir(m_directory.path()).entryList({"page*.png"}, QDir::Files, QDir::Name)) {
        m_files.append(m_directory.filePath(name));
        m_pages.append(QImage(m_files.last()).convertToFormat(QImage::Format_Grayscale8));
    }
    findWords();
}

QStringList PrintedPages::lines(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        QTest::qFail(qPrintable(program + " doesn't run: " + process.errorString()), __FILE__, __LINE__);
    return QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

QVector<PrintedPages::Code> PrintedPages::codes() const
{
    QVector<Code> codes;
    for (int page = 0; page < m_pages.size(); ++page) {
        const QImage& image = m_pages[page];
        const auto rows =
            spansBetween(0, image.height(), [&](int y) { return longestRun(image, y) > ShortestLine; });
        for (const auto& row : rows) {
            const auto columns =
                spansBetween(0, image.width(), [&](int x) { return isColumnDark(image, x, row); });
            for (int column = 0; column + 1 < columns.size(); column += 2) {
                const auto cell = [&](int number) {
                    return QRect(QPoint(columns[number].first, row.first),
                                 QPoint(columns[number].second, row.second));
                };
                codes.append({page, cell(column), cell(column + 1)});
            }
        }
    }
    return codes;
}

bool PrintedPages::isBlank(int page, const QRect& cell) const
{
    const QRect inner = cell.adjusted(2, 2, -2, -2);
    for (int y = inner.top(); y <= inner.bottom(); ++y) {
        for (int x = inner.left(); x <= inner.right(); ++x) {
            if (isDark(m_pages[page], x, y))
                return false;
        }
    }
    return true;
}

void PrintedPages::findWords()
{
    const QString number = "%1=\"([\\d.]+)\" ?";
    const QRegularExpression wordLine("<word " + number.arg("xMin") + number.arg("yMin") +
                                      number.arg("xMax") + number.arg("yMax") + ">(.*)</word>");
    int page = -1;
    for (const QString& line : lines("pdftotext", {"-bbox", m_pdf, "-"})) {
        if (line.contains("<page "))
            ++page;
        const QRegularExpressionMatch match = wordLine.match(line);
        if (!match.hasMatch())
            continue;
        const auto middle = [&](int low, int high) { // in dots, from points of 72 an inch
            return qRound((match.captured(low).toDouble() + match.captured(high).toDouble()) / 2 *
                          Resolution / 72);
        };
        const QString text = QTextDocumentFragment::fromHtml(match.captured(5)).toPlainText();
        m_words.append({page, QPoint(middle(1, 3), middle(2, 4)), text});
    }
}

QString PrintedPages::wordsIn(int page, const QRect& cell) const
{
    QStringList words;
    for (const Word& word : m_words) {
        if (word.page == page && cell.contains(word.middle))
            words.append(word.text);
    }
    return words.join(' ').replace(QChar::Nbsp, ' ');
}

QStringList PrintedPages::labels() const
{
    QStringList labels;
    QMap<int, QString> leftOver; // of each column
    for (const Code& code : codes()) {
        QString& before = leftOver[code.imageCell.left()];
        const QString label = QStringList({before, wordsIn(code.page, code.labelCell)}).join(' ').trimmed();
        before.clear();
        if (isBlank(code.page, code.imageCell))
            before = label;
        else
            labels.append(label);
    }
    return labels;
}

QString PrintedPages::text() const
{
    QStringList words;
    for (const Word& word : m_words)
        words.append(word.text);
    return words.join(' ').replace(QChar::Nbsp, ' ');
}

QStringList PrintedPages::foreignReading() const
{
    QStringList arguments = ForeignReader;
    for (const Code& code : codes()) {
        if (isBlank(code.page, code.imageCell))
            continue;
        arguments.append(m_directory.filePath(QString("code%1.png").arg(arguments.size())));
        picture(code).save(arguments.last());
    }
    return lines("zbarimg", arguments);
}

QStringList PrintedPages::foreignReading(int page) const
{
    return lines("zbarimg", ForeignReader + QStringList{m_files[page]});
}

void PrintedPages::save(const QString& namePattern) const
{
    for (int page = 0; page < m_pages.size(); ++page)
        m_pages[page].save(namePattern.arg(page + 1) + ".png");
    QFile::copy(m_pdf, namePattern.arg("all") + ".pdf");
}
