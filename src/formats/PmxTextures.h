#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QStringList>

class KMTextureNode;
class QDir;
class QImage;
struct PmxExportOptions;

/// The pictures that the materials of a file refer to, each once, in the order in which they are first needed. What
/// players can't read, and what lies in no file, is stored as a PNG where that is asked for.
class PmxTextures
{
    Q_DECLARE_TR_FUNCTIONS(PmxTextures)
public:
    PmxTextures(const QString &modelPath, const PmxExportOptions &options);

    void take(int texture);                                                ///< of the project's list; -1 for none
    int indexOf(int texture) const { return m_places.value(texture, -1); } ///< in the file; -1 without a file
    const QStringList &paths() const { return m_paths; }

private:
    QString pathOf(const KMTextureNode &texture);
    QString newPath(const QDir &folder, const QString &base);
    QString stored(const KMTextureNode &texture);
    QString converted(const QString &path);
    bool isThere(const QString &path, const QImage &image) const;
    bool mayWrite(const QString &path) const;
    QString written(const QString &path) const;

    const PmxExportOptions &m_options;
    QString m_modelPath;
    QHash<int, int> m_places;
    QStringList m_paths;
    QSet<QString> m_taken;               // paths of files that must not be written over
    QHash<QString, QString> m_converted; // the PNG by the file of a painting program
};
