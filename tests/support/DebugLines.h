#ifndef TORNIK_TESTS_SUPPORT_DEBUGLINES_H
#define TORNIK_TESTS_SUPPORT_DEBUGLINES_H

#include <QLoggingCategory>
#include <QStringList>

/** Gathers what the program logs while this object lives; one object at a time. */
class DebugLines
{
public:
    /**
     * @param category its debug lines alone; null for the messages of every kind and category
     * @param filterRules as a user sets them
     */
    explicit DebugLines(const char* category = nullptr, const QString& filterRules = QString())
    {
        s_lines.clear();
        s_category = category;
        QLoggingCategory::setFilterRules(filterRules);
        m_before = qInstallMessageHandler(&keep);
    }
    ~DebugLines()
    {
        qInstallMessageHandler(m_before);
        QLoggingCategory::setFilterRules(QString());
    }
    Q_DISABLE_COPY(DebugLines)

    const QStringList& lines() const { return s_lines; }
    int count(const QString& line) const { return s_lines.count(line); }
    void forget() { s_lines.clear(); }

private:
    static void keep(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (!s_category || (type == QtDebugMsg && qstrcmp(context.category, s_category) == 0))
            s_lines.append(text);
    }

    inline static QStringList s_lines;
    inline static const char* s_category = nullptr;
    QtMessageHandler m_before = nullptr;
};

#endif
