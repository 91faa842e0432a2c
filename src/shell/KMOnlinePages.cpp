#include "shell/KMOnlinePages.h"

#include "core/KMSettings.h"

#include <QDesktopServices>
#include <QSettings>
#include <QUrl>

namespace {

constexpr const char *keys[] = {"Online/Manual", "Online/Update"};

} // namespace

QUrl KMOnlinePages::address(Page page)
{
    const QSettings file(gSettings->kelmoFile(), QSettings::IniFormat);
    const QUrl url(file.value(QLatin1String(keys[page])).toString().trimmed(), QUrl::StrictMode);
    const bool isWeb = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    return url.isValid() && isWeb && !url.host().isEmpty() ? url : QUrl();
}

bool KMOnlinePages::open(Page page)
{
    const QUrl url = address(page);
    return !url.isEmpty() && QDesktopServices::openUrl(url);
}
