#ifndef TORNIK_TESTS_QR_PRINTEDPAGES_H
#define TORNIK_TESTS_QR_PRINTEDPAGES_H

#include <QImage>
#include <QRect>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

/** A PDF file as it comes out of a printer: its pages as pictures, the cells of the table on them. */
class PrintedPages
{
public:
    /** One code of the table and the text that stands beside it. */
    struct Code
    {
        int page;
        QRect imageCell;
        QRect labelCell;
    };

    explicit PrintedPages(const QString& pdf);

    int count() const { return m_pages.size(); }
    /** @return page by page, row by row; the empty cells of the last row are there, too. */
    QVector<Code> codes() const;
    const QImage& page(int number) const { return m_pages[number]; }
    /** @return all words of all pages, in their order. */
    QString text() const;
    QImage picture(const Code& code) const { return m_pages[code.page].copy(code.imageCell); }
    /** @return whether nothing is printed in there. */
    bool isBlank(int page, const QRect& cell) const;
    /**
     * @return the words beside each code, one line each, in their order. What a page break has left
     *         of them at the foot of the page before counts as theirs.
     */
    QStringList labels() const;
    /** @return what the foreign reader finds in each code, in their order; nothing for a code it can't read.
     */
    QStringList foreignReading() const;
    /** @return what the foreign reader finds anywhere on a page. */
    QStringList foreignReading(int page) const;
    void save(const QString& namePattern) const;

private:
    struct Word
    {
        int page;
        QPoint middle;
        QString text;
    };

    void findWords();
    QString wordsIn(int page, const QRect& cell) const;
    QStringList lines(const QString& program, const QStringList& arguments) const;

    QString m_pdf;
    QTemporaryDir m_directory;
    QStringList m_files;
    QVector<QImage> m_pages; ///< 8 bits of grey
    QVector<Word> m_words;
};

#endif
