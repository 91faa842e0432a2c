#include "support/KmdEveryKind.h"

#include "support/KmdBytes.h"

#include <QStringList>

#include <iterator>

namespace {

/// A body in words: i, u, f, b, s are the elements, 3f is three of them, =7 and @7 a certain i and u, [ ] a count of
/// two and two records, T the transform, G the tags; 2.2: before a word says in which version it came.
struct Kind
{
    int type;
    const char *body;
};

constexpr Kind nodeKinds[] = {
    {0x600006, ""},
    {0x4e00009, "T f f b b i i [ 2f ] f f i i 4f G"},
};

constexpr Kind tagKinds[] = {
    {0x20000006, "u i i f 7f b 2i 9f"},
    {0x20000007, "3u 12f 9f 3f 3f"},
    {0x20000008, "i u f i f i"},
};

void writeEveryTag(QDataStream &out, double version, bool ofMesh);

class Words
{
public:
    Words(QDataStream &out, double version, bool ofMesh, const char *body)
        : m_out(out)
        , m_version(float(version))
        , m_ofMesh(ofMesh)
        , m_words(QString::fromLatin1(body).split(QLatin1Char(' '), Qt::SkipEmptyParts))
    {
    }
    void write() { writeFrom(0, true); }

private:
    /// Up to the end of the list; returns the place behind it.
    int writeFrom(int at, bool isThere)
    {
        while (at < m_words.size() && m_words[at] != QLatin1String("]")) {
            const QString word = m_words[at++];
            const bool isNow = isThere && isInThisFile(word);
            if (!word.endsWith(QLatin1Char('['))) {
                if (isNow)
                    writeWord(word.section(QLatin1Char(':'), -1));
                continue;
            }
            if (isNow) {
                m_out << qint32(2);
                writeFrom(at, true);
            }
            at = writeFrom(at, isNow) + 1;
        }
        return at;
    }

    bool isInThisFile(const QString &word) const
    {
        if (word.startsWith(QLatin1Char('M')))
            return m_ofMesh;
        return !word.contains(QLatin1Char(':')) || m_version >= word.section(QLatin1Char(':'), 0, 0).toFloat();
    }

    void writeWord(const QString &word)
    {
        if (word.startsWith(QLatin1Char('='))) {
            m_out << qint32(word.mid(1).toLongLong(nullptr, 0));
            return;
        }
        if (word.startsWith(QLatin1Char('@'))) {
            m_out << word.mid(1).toULongLong();
            return;
        }
        const int count = word.size() > 1 ? word.left(word.size() - 1).toInt() : 1;
        for (int i = 0; i < count; ++i)
            writeElement(word.back().toLatin1());
    }

    void writeElement(char kind)
    {
        if (kind == 'i')
            m_out << qint32(-2);
        else if (kind == 'u')
            m_out << quint64(0x7f00000000000003);
        else if (kind == 'f')
            m_out << 7.5f;
        else if (kind == 'b')
            m_out << true;
        else if (kind == 's')
            m_out << QStringLiteral("文字");
        else if (kind == 'T')
            writeTransform();
        else
            writeEveryTag(m_out, double(m_version), false);
    }

    void writeTransform()
    {
        m_out << QStringLiteral("left out") << true << true;
        for (int i = 0; i < 10; ++i)
            m_out << float(i);
    }

    QDataStream &m_out;
    float m_version;
    bool m_ofMesh;
    QStringList m_words;
};

void writeEveryTag(QDataStream &out, double version, bool ofMesh)
{
    if (float(version) < 1.6f)
        return;
    out << qint32(std::size(tagKinds));
    for (const Kind &kind : tagKinds) {
        out << qint32(kind.type) << QStringLiteral("tag");
        Words(out, version, ofMesh, kind.body).write();
    }
}

void writeHead(QDataStream &out, double version, int type, quint64 row, quint64 parentRow)
{
    out << qint32(type) << row + 1000 << row << parentRow;
    if (float(version) >= 1.7f)
        out << true;
}

} // namespace

void addEveryKind(KmdBytes &file)
{
    constexpr quint64 groupRow = 22;
    constexpr quint64 firstRow = 100;
    const double version = file.version;
    file.tags = [version](QDataStream &out, bool ofMesh) { writeEveryTag(out, version, ofMesh); };
    file.moreNodeCount = everyKindNodes() + 1;
    file.moreNodes = [version](QDataStream &out) {
        quint64 row = firstRow;
        for (const Kind &kind : nodeKinds) {
            writeHead(out, version, kind.type, row++, groupRow);
            Words(out, version, false, kind.body).write();
        }
        writeHead(out, version, 0x600002, row, firstRow);
        out << QStringLiteral("behind") << qint32(4711);
        writeEveryTag(out, version, false);
    };
}

void addRecord(KmdBytes &file, int type, const char *body)
{
    const double version = file.version;
    file.moreNodeCount = 1;
    file.moreNodes = [version, type, body](QDataStream &out) {
        writeHead(out, version, type, 100, 0);
        Words(out, version, false, body).write();
    };
}

int everyKindNodes()
{
    return int(std::size(nodeKinds));
}
