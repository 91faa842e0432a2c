#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// Where a reader is in its file and what it has to say: remarks on what is odd but harmless, and the one sentence with
/// section, element and byte of what ended the walk.
class KMReadReport
{
    Q_DECLARE_TR_FUNCTIONS(KMReadReport)
public:
    void enterSection(const QString &name);
    void enterElement(int index, int count) ///< index from 0
    {
        m_element = index;
        m_elementCount = count;
    }

    bool ok() const { return m_error.isEmpty(); }
    QString error() const { return m_error; }
    void fail(const QString &what); ///< keeps the sentence, unless the walk failed before
    void warn(const QString &what); ///< collects a remark, with where it was
    QStringList warnings() const;   ///< the last line counts those beyond the limit

    const QStringList &firstWarnings() const { return m_warnings; } ///< without such a line
    int moreWarnings() const
    {
        return m_warningCount - m_warnings.size();
    } ///< beyond the limit: not kept, only counted

    /// Shows a user what was said of a file, and writes it to the log. Those that are only counted aren't in the lines.
    static void show(const QString &path, const QStringList &lines, int onlyCounted = 0);

protected:
    ~KMReadReport() = default;

    qint64 m_lastRead = 0; // where the last element began: what is wrong lies there

private:
    QString place() const;
    static QStringList firstOf(QStringList lines, int count);

    QString m_section;
    int m_element = -1;
    int m_elementCount = 0;
    QString m_error;
    QStringList m_warnings;
    int m_warningCount = 0;
};
