#ifndef TORNIK_DATA_CCSVREADER_H
#define TORNIK_DATA_CCSVREADER_H

#include <QFile>
#include <QStringList>
#include <QTextStream>

#include <optional>

/**
 * Reads a file of lines split at ";": UTF-8, a byte order mark at the start is skipped.
 *
 * Nothing is unquoted. Lives on the stack of whoever imports.
 */
class CCsvReader
{
public:
    explicit CCsvReader(const QString& fileName);

    /** @return whether it is a plain file that can be read; a pipe or a device could block. */
    bool open();
    /** @return the parts of the next line, empty ones kept; nothing at the end of the file. */
    std::optional<QStringList> readRow();

private:
    QFile m_file;
    QTextStream m_stream;
};

#endif
