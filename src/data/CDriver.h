#ifndef TORNIK_DATA_CDRIVER_H
#define TORNIK_DATA_CDRIVER_H

#include <QString>

class QDataStream;

/** A driver: a name and the id of the row in the table `driver`. A value, copied freely. */
class CDriver
{
public:
    const QString& name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

    /** @return the id of the database row, -1 for none. */
    int id() const { return m_id; }
    void setId(int id) { m_id = id; }

private:
    QString m_name = QStringLiteral("Default");
    int m_id = -1;
};

/** Stream form: the name, then the id as a 32-bit integer. */
QDataStream& operator<<(QDataStream& stream, const CDriver& driver);
QDataStream& operator>>(QDataStream& stream, CDriver& driver);

#endif
