#ifndef TORNIK_QR_CQRCODEGENERATOR_H
#define TORNIK_QR_CQRCODEGENERATOR_H

#include "data/CCar.h"
#include "data/CDriver.h"

#include <QObject>

class CCarList;
class CDriverList;
class QImage;
class QTextCursor;
class QTextDocument;
class QTextTable;

/**
 * Prints the codes of cars and drivers into a PDF file: a table of two codes a row, each with its
 * label beside it.
 *
 * Made on the stack for one call of one of the four slots; main thread only. A code carries the
 * name, not the id: it holds on any machine, and no longer once the car or driver is renamed.
 * An empty file name writes nothing; a file that can't be written is passed over.
 */
class CQrCodeGenerator : public QObject
{
    Q_OBJECT

public:
    explicit CQrCodeGenerator(QObject* parent = nullptr);
    ~CQrCodeGenerator() override;

    /** @param percent of the size that codes have by default; whole hundreds only, the rest is cut off */
    void setImageScalePercent(int percent);

public Q_SLOTS:
    /** @param carlist not owned; all its cars */
    void generateCarCodes(const QString& documentName, const CCarList* carlist);
    void generateCarCodes(const QString& documentName, const CCar& car);
    /** @param driverlist not owned; all its drivers */
    void generateDriverCodes(const QString& documentName, const CDriverList* driverlist);
    void generateDriverCodes(const QString& documentName, const CDriver& driver);

private Q_SLOTS:
    void writePdf(const QString& documentName);

private:
    void beginDocument(const QString& subject, const QString& code);
    void nextCell();
    void beginRow();
    /** @param label HTML */
    void addCode(const QImage& image, const QString& label);
    void addCar(const CCar& car, const QString& labelEnd);
    void addDriver(const CDriver& driver);
    void insertImage(const QImage& image, const QString& label);

    QTextDocument* m_document;     ///< owned
    QTextCursor* m_cursor;         ///< owned
    QTextTable* m_table = nullptr; ///< owned by the document; null before beginDocument()
    qint32 m_currentRow = 0;
    qint32 m_currentColumn = 0;
    double m_baseScale = 0.25;
    double m_imageScale = m_baseScale;
};

#endif
