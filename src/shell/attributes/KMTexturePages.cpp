#include "shell/attributes/KMTexturePages.h"

#include "core/KMDpi.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "core/KMTextureCommands.h"
#include "core/KMTexturePath.h"
#include "shell/KMImageFiles.h"
#include "shell/KMTexturePicture.h"
#include "shell/widgets/KMTextField.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace {

constexpr int PictureSize = 128;

} // namespace

KMTexturePage::KMTexturePage(KMTextureNode *texture)
    : KMNodePage(texture)
    , m_texture(texture)
    , m_picture(new QLabel)
    , m_size(new QLabel)
{
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setMinimumHeight(dpiScaled(PictureSize));
    form()->addRow(m_picture);
    addRow(tr("Size"), m_size, QStringLiteral("imageSize"));
}

void KMTexturePage::refresh()
{
    KMNodePage::refresh();
    const QSize size(dpiScaled(PictureSize), dpiScaled(PictureSize));
    QPixmap picture = texturePicture(m_texture, size * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture->setPixmap(picture);
    const QImage image = m_texture->image();
    m_size->setText(image.isNull() ? tr("no picture") : tr("%1 x %2").arg(image.width()).arg(image.height()));
}

QString KMTexturePage::askImageFile(const QString &start)
{
    KMFileRequest request;
    request.title = tr("Open Image");
    request.directory = start;
    request.filter = KMImageFiles::openFilter();
    request.parent = window();
    return KMPrompt::current().openFile(request);
}

KMFileTexturePage::KMFileTexturePage(KMFileTextureNode *texture)
    : KMTexturePage(texture)
    , m_texture(texture)
    , m_path(new KMTextField)
{
    auto *choose = new QToolButton;
    choose->setText(QStringLiteral("..."));
    choose->setObjectName(QStringLiteral("choosePath"));
    choose->setToolTip(tr("Choose the file"));
    m_path->setObjectName(QStringLiteral("path"));
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(dpiScaled(2));
    layout->addWidget(m_path, 1);
    layout->addWidget(choose);
    addRow(tr("File"), row, QStringLiteral("pathRow"));
    auto *reload = new QPushButton(tr("Reload"));
    reload->setToolTip(tr("Reads the file again after another program has changed it"));
    addRow({}, reload, QStringLiteral("reloadImage"));
    connect(reload, &QPushButton::clicked, this, [this] {
        m_texture->reload();
        refresh();
    });

    connect(m_path, &KMTextField::committed, this, &KMFileTexturePage::setPath);
    connect(choose, &QToolButton::clicked, this, [this] {
        const QString file = m_texture->filePath();
        const QString path =
            askImageFile(file.isEmpty() ? gSolution->directory().absolutePath() : QFileInfo(file).absolutePath());
        if (!path.isEmpty())
            setPath(path);
    });
}

void KMFileTexturePage::setPath(const QString &path)
{
    if (KMTexturePath::place(path) == m_texture->path())
        refresh(); // another text may stand for it
    else
        gSolution->push(new editTextureFilenameCommand(m_texture, path));
}

void KMFileTexturePage::refresh()
{
    KMTexturePage::refresh();
    m_path->showText(KMTexturePath::written(m_texture->path()));
    m_path->setToolTip(m_texture->path());
}

KMEmbeddedTexturePage::KMEmbeddedTexturePage(KMEmbeddedTextureNode *texture)
    : KMTexturePage(texture)
    , m_texture(texture)
    , m_export(new QPushButton(tr("Export...")))
{
    auto *replaceButton = new QPushButton(tr("Replace..."));
    addRow({}, replaceButton, QStringLiteral("replaceImage"));
    addRow({}, m_export, QStringLiteral("exportImage"));
    connect(replaceButton, &QPushButton::clicked, this, &KMEmbeddedTexturePage::replace);
    connect(m_export, &QPushButton::clicked, this, &KMEmbeddedTexturePage::exportImage);
}

void KMEmbeddedTexturePage::refresh()
{
    KMTexturePage::refresh();
    m_export->setEnabled(!m_texture->image().isNull());
}

void KMEmbeddedTexturePage::replace()
{
    const QString path = askImageFile(gSolution->directory().absolutePath());
    if (path.isEmpty())
        return;
    const QImage image(path);
    if (image.isNull())
        KMPrompt::current().warn(tr("%1 holds no picture that can be read.").arg(path), window());
    else
        gSolution->push(new remakeEmbeddedTextureCommand(m_texture, image));
}

void KMEmbeddedTexturePage::exportImage()
{
    KMFileRequest request;
    request.title = tr("Export Image");
    request.directory = gSolution->directory().filePath(m_texture->name() + QStringLiteral(".png"));
    request.filter = KMImageFiles::saveFilter();
    request.parent = window();
    const QString path = KMPrompt::current().saveFile(request);
    if (!path.isEmpty() && !m_texture->image().save(path))
        KMPrompt::current().warn(tr("%1 could not be written.").arg(path), window());
}
