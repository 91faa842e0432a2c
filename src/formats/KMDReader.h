#pragma once

#include "formats/KMDFormat.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

struct KMDContents;
struct KMDReadContext;
class KMDStream;
class KMDViewParts;
class QFile;

/// Reads a native file of any version. The file is read whole and checked before the document is touched: a
/// read that fails leaves the document as it was.
class KMDReader
{
    Q_DECLARE_TR_FUNCTIONS(KMDReader)
public:
    struct Options
    {
        int mask = KMD::TakeAll;           ///< bits of KMD::Take
        float importScale = 1.0f;          ///< multiplies positions
        KMDViewParts *viewParts = nullptr; ///< takes cameras and views; null drops them
    };

    KMDReader() = default;
    explicit KMDReader(const Options &options)
        : m_options(options)
    {
    }

    /// Adds what the file holds to the document and clears the history. On failure error() tells in one
    /// sentence what is wrong and where.
    bool read(const QString &path);
    bool readBytes(const QByteArray &bytes); ///< the same from the bytes of a file

    QByteArray thumbnail() const { return m_thumbnail; } ///< of the file, as a PNG; empty when it has none
    QString error() const { return m_error; }
    QStringList warnings() const { return m_warnings; } ///< what was odd but harmless

private:
    bool open(QFile &file);
    bool readStream(KMDStream &in, const QString &folder);
    bool parse(KMDStream &in, KMDContents &contents);
    bool readHeader(KMDStream &in);
    void readProject(KMDStream &in, KMDContents &contents);
    void readReservedTexts(KMDStream &in);
    void readNodes(KMDStream &in, KMDContents &contents);
    void readNode(KMDReadContext &context, KMDContents &contents);
    void skipNode(KMDReadContext &context, int type);
    void readCurrent(KMDStream &in, KMDContents &contents);
    void skipSchematic(KMDStream &in);

    Options m_options;
    bool m_isForRelease1 = false;
    QByteArray m_thumbnail;
    QString m_error;
    QStringList m_warnings;
};
