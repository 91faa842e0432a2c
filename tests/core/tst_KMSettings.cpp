#include "core/KMSettings.h"
#include "core/KMWallpaper.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSet>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_KMSettings : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void defaultsFollowTheScale();
    void fileWinsOverTheScale();
    void tableIsSound();
    void everyRowSurvivesTheFile();
    void everyColorSurvivesTheFile();
    void filesAreReadable();
    void damagedValueCountsAsMissing_data();
    void damagedValueCountsAsMissing();
    void meaningfulOddValueIsKept_data();
    void meaningfulOddValueIsKept();
    void noiseIsHarmless();
    void unusableFileIsHarmless();
    void foreignKeysStay();
    void keysOfOlderReleasesVanish();
    void applySendsOnlyWhatChanged();
    void wallpaperOfAFile();

private:
    QString path(const char *file) const { return m_dir->filePath(QLatin1String(file)); }
    void write(const char *file, const QByteArray &text) const;
    QByteArray text(const char *file) const;

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

/// A value of the row's type that is within its limits and not its default.
QVariant otherValue(const KMSettingsRow &row)
{
    switch (row.fallback.type()) {
    case QVariant::Bool:
        return !row.fallback.toBool();
    case QVariant::String:
        return QStringLiteral("plain, \"quoted\" = 日本 %1").arg(QLatin1String(row.key));
    case QVariant::Double:
        return row.fallback.toDouble() + 0.125;
    default:
        return row.fallback.toInt() < row.highest ? row.fallback.toInt() + 1 : row.fallback.toInt() - 1;
    }
}

} // namespace

void tst_KMSettings::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void tst_KMSettings::write(const char *file, const QByteArray &text) const
{
    QFile out(path(file));
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(text);
}

QByteArray tst_KMSettings::text(const char *file) const
{
    QFile in(path(file));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

void tst_KMSettings::defaultsFollowTheScale()
{
    KMSettings settings(m_dir->path());
    settings.dpiScale = 2.0;
    settings.load();
    QCOMPARE(settings.pointSize, 10.0f);
    QCOMPARE(settings.pointSizeTools, 10.0f);
    QCOMPARE(settings.lineWidthTools, 4.0f);
    QCOMPARE(settings.lineWidth, 1.0f);
    QCOMPARE(settings.handleRatio, 2.0f);
    QCOMPARE(settings.rotateRatio, 0.5f);
    QCOMPARE(settings.zoomRatio, 0.5f);
    QCOMPARE(settings.glSamples, 4);
}

void tst_KMSettings::fileWinsOverTheScale()
{
    write("kelmo.ini", "[GL]\nSamples=8\nPointSize=3.5\n");
    KMSettings settings(m_dir->path());
    settings.dpiScale = 2.0;
    settings.load();
    QCOMPARE(settings.glSamples, 8);
    QCOMPARE(settings.pointSize, 3.5f);
    QCOMPARE(settings.lineWidthTools, 4.0f);
}

void tst_KMSettings::tableIsSound()
{
    QSet<QString> keys;
    for (const KMSettingsRow &row : settingsRows()) {
        keys.insert(QLatin1String(row.key));
        KMSettingsValues values;
        QCOMPARE(row.value(values), row.fallback);
        for (const double scale : {0.75, 1.0, 1.5, 3.0, 4.0})
            QVERIFY2(row.setValue(values, row.fallbackAt(scale)), row.key);
    }
    QCOMPARE(keys.size(), settingsRows().size());
    QVERIFY(settingsRow("Navigation/LRdrag"));
    QVERIFY(!settingsRow("Navigation/lrdrag"));
}

void tst_KMSettings::everyRowSurvivesTheFile()
{
    KMSettings written(m_dir->path());
    for (const KMSettingsRow &row : settingsRows())
        QVERIFY2(row.setValue(written, otherValue(row)), row.key);
    written.save();

    KMSettings read(m_dir->path());
    read.load();
    for (const KMSettingsRow &row : settingsRows()) {
        const char *file = row.file == KMSettingsRow::File::Kelmo ? "kelmo.ini" : "panel.ini";
        QVERIFY2(QSettings(path(file), QSettings::IniFormat).contains(QLatin1String(row.key)), row.key);
        QVERIFY2(row.value(read) == otherValue(row), row.key);
    }
}

void tst_KMSettings::everyColorSurvivesTheFile()
{
    KMSettings written(m_dir->path());
    for (const KMDisplayColorRow &row : displayColorRows())
        written.setDisplayColor(row.index, QColor(row.index, 255 - row.index, 7, 100 + row.index));
    written.save();

    KMSettings read(m_dir->path());
    read.load();
    for (const KMDisplayColorRow &row : displayColorRows())
        QCOMPARE(read.displayColor(row.index), QColor(row.index, 255 - row.index, 7, 100 + row.index));

    const QSettings file(path("kelmo.ini"), QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("DisplayColor/DP_EDGE")).toUInt(), QColor(7, 248, 7, 107).rgba());
}

void tst_KMSettings::filesAreReadable()
{
    KMSettings settings(m_dir->path());
    settings.faceBlendRatio = 0.2f;
    settings.zoomRatio = 1.0f / 3.0f;
    settings.save();
    const QByteArray ini = text("kelmo.ini");
    QVERIFY(ini.contains("AppVer=225"));
    QVERIFY(ini.contains("FaceBlendRatio=0.2\n"));
    QVERIFY2(!ini.contains("@Variant"), ini.constData());

    KMSettings read(m_dir->path());
    read.load();
    QCOMPARE(read.zoomRatio, 1.0f / 3.0f);
}

void tst_KMSettings::damagedValueCountsAsMissing_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");

    QTest::newRow("no number") << QByteArray("Global/FontSize") << QByteArray("big");
    QTest::newRow("negative count") << QByteArray("Global/UndoCount") << QByteArray("-1");
    QTest::newRow("beyond an int") << QByteArray("GL/MaxTextureSize") << QByteArray("99999999999999");
    QTest::newRow("no bool") << QByteArray("Backup/EnableBackup") << QByteArray("perhaps");
    QTest::newRow("not finite") << QByteArray("GL/PointSize") << QByteArray("nan");
    QTest::newRow("autosave all the time") << QByteArray("AutoSave/Interval") << QByteArray("0");
    QTest::newRow("timer overflow") << QByteArray("AutoSave/Interval") << QByteArray("2000000000");
    QTest::newRow("stopped camera") << QByteArray("Navigation/rotateRatio") << QByteArray("0");
    QTest::newRow("foreign variant") << QByteArray("GL/Samples") << QByteArray("@Variant(\\0\\0)");
}

void tst_KMSettings::damagedValueCountsAsMissing()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    const int slash = key.indexOf('/');
    write("kelmo.ini", '[' + key.left(slash) + "]\n" + key.mid(slash + 1) + '=' + value + '\n');

    KMSettings settings(m_dir->path());
    settings.load();
    const KMSettingsRow *row = settingsRow(key.constData());
    QVERIFY(row);
    QCOMPARE(row->value(settings), row->fallback);
}

void tst_KMSettings::meaningfulOddValueIsKept_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("core profile") << QByteArray("GL/Core") << QByteArray("Core=2") << QVariant(2);
    QTest::newRow("odd samples") << QByteArray("GL/Samples") << QByteArray("Samples=6") << QVariant(6);
    QTest::newRow("no camera limit") << QByteArray("Navigation/CameraRotateLimit") << QByteArray("CameraRotateLimit=8")
                                     << QVariant(8);
    QTest::newRow("bool as number") << QByteArray("Global/UseHSV") << QByteArray("UseHSV=1") << QVariant(true);
    QTest::newRow("float of a binary variant")
        << QByteArray("GL/LineWidth") << QByteArray("LineWidth=@Variant(\\0\\0\\0\\x87@\\x10\\0\\0)") << QVariant(2.25);
    QTest::newRow("text with commas") << QByteArray("Global/FontType") << QByteArray("FontType=Serif, Bold")
                                      << QVariant(QStringLiteral("Serif, Bold"));
}

void tst_KMSettings::meaningfulOddValueIsKept()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, line);
    QFETCH(QVariant, expected);
    write("kelmo.ini", '[' + key.left(key.indexOf('/')) + "]\n" + line + '\n');

    KMSettings settings(m_dir->path());
    settings.load();
    QCOMPARE(settingsRow(key.constData())->value(settings), expected);
}

void tst_KMSettings::noiseIsHarmless()
{
    QRandomGenerator random(7);
    for (int run = 0; run < 50; ++run) {
        QTemporaryDir dir; // the parsed file would be taken from Qt's cache under the same name
        QByteArray noise = "[GL]\nSamples=4\n[Global]\n";
        for (int i = 0; i < 300; ++i)
            noise.append(char(random.bounded(256)));
        for (const char *name : {"kelmo.ini", "panel.ini"}) {
            QFile out(dir.filePath(QLatin1String(name)));
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write(noise);
        }
        KMSettings settings(dir.path());
        settings.load();
        for (const KMSettingsRow &row : settingsRows())
            QVERIFY2(row.setValue(settings, row.value(settings)), row.key);
        settings.undoCount = 64;
        settings.save();
        KMSettings again(dir.path());
        again.load();
        QCOMPARE(again.undoCount, 64);
    }
}

/// Directories in place of the files can be neither read nor written, even by an administrator.
void tst_KMSettings::unusableFileIsHarmless()
{
    QVERIFY(QDir(m_dir->path()).mkpath(QStringLiteral("kelmo.ini/x")));
    QVERIFY(QDir(m_dir->path()).mkpath(QStringLiteral("panel.ini/x")));
    KMSettings settings(m_dir->path());
    settings.load();
    QCOMPARE(settings.undoCount, 32);
    settings.undoCount = 4;
    settings.save();
    QVERIFY(QFileInfo(path("kelmo.ini")).isDir());
    QCOMPARE(settings.undoCount, 4);
}

void tst_KMSettings::foreignKeysStay()
{
    const QStringList recent{QStringLiteral("/a/first, of two.kmd"), QStringLiteral("/a/日本.kmd")};
    {
        QSettings file(path("kelmo.ini"), QSettings::IniFormat);
        file.setValue(QStringLiteral("recentFileList"), recent);
        file.setValue(QStringLiteral("Future/Option"), 12);
        QSettings(path("panel.ini"), QSettings::IniFormat).setValue(QStringLiteral("customPanel1/actions"), 3);
    }
    KMSettings settings(m_dir->path());
    settings.load();
    settings.save();

    const QSettings file(path("kelmo.ini"), QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("recentFileList")).toStringList(), recent);
    QCOMPARE(file.value(QStringLiteral("Future/Option")).toInt(), 12);
    QCOMPARE(QSettings(path("panel.ini"), QSettings::IniFormat).value(QStringLiteral("customPanel1/actions")).toInt(),
             3);
}

void tst_KMSettings::keysOfOlderReleasesVanish()
{
    write("kelmo.ini", "[Global]\nCountry=1\nNativeTitleBar=true\nUndoCount=64\n"
                       "[Navigation]\nAXISorLR=1\ncamera0=1\ncamera1=1\ncamera2=1\niconSize=3\nreverseX=true\n");
    KMSettings settings(m_dir->path());
    settings.load();
    settings.save();

    const QSettings file(path("kelmo.ini"), QSettings::IniFormat);
    for (const char *key : {"Global/Country", "Global/NativeTitleBar", "Navigation/AXISorLR", "Navigation/camera0",
                            "Navigation/camera1", "Navigation/camera2", "Navigation/iconSize"})
        QVERIFY2(!file.contains(QLatin1String(key)), key);
    QCOMPARE(file.value(QStringLiteral("Global/UndoCount")).toInt(), 64);
    QCOMPARE(file.value(QStringLiteral("Navigation/reverseX")).toBool(), true);
}

void tst_KMSettings::applySendsOnlyWhatChanged()
{
    KMSettings settings(m_dir->path());
    QSignalSpy colors(&settings, &KMSettings::DPColorChanged);
    QSignalSpy zRev(&settings, &KMSettings::OPHandleZRevCHanged);
    KMSettingsValues values = settings.values();
    values.undoCount = 256;
    settings.apply(values);
    QCOMPARE(colors.count() + zRev.count(), 0);
    values.displayColors[DP_FLOW] = Qt::blue;
    settings.apply(values);
    QCOMPARE(colors.count(), 1);
    values.handleZRev = true;
    settings.apply(values);
    QCOMPARE(zRev.count(), 1);
    QCOMPARE(colors.count(), 1);
    QCOMPARE(settings.undoCount, 256);
}

void tst_KMSettings::wallpaperOfAFile()
{
    QImage halves(64, 64, QImage::Format_RGB32);
    halves.fill(Qt::black);
    for (int y = 0; y < 64; ++y) {
        for (int x = 32; x < 64; ++x)
            halves.setPixelColor(x, y, Qt::white);
    }
    QVERIFY(halves.save(path("desk.png")));
    write("broken.png", "no picture");

    KMSettings settings(m_dir->path());
    QVERIFY(settings.loadWallpaper(path("desk.png")));
    QVERIFY(settings.wallpaper);
    const QImage picture = settings.wallpaper->toImage();
    QCOMPARE(picture.size(), QSize(1280, 720));
    const int border = picture.pixelColor(640, 360).red();
    QVERIFY2(border > 40 && border < 215, "the border between the halves is not soft");
    QVERIFY(picture.pixelColor(200, 360).red() < 20);
    QVERIFY(picture.pixelColor(1276, 3).red() > 200);

    for (const char *file : {"broken.png", "missing.png"}) {
        QVERIFY(!settings.loadWallpaper(path(file)));
        QVERIFY(!settings.wallpaper);
    }
    QVERIFY(!settings.loadWallpaper(QString()));
}

KM_TEST(tst_KMSettings);

#include "tst_KMSettings.moc"
