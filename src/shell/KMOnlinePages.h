#pragma once

class QUrl;

/// Pages of the web that belong to the program. Who distributes it writes their addresses into "kelmo.ini"; without an
/// address there is nothing to reach. The program itself never goes online: the user's browser does, on a click.
namespace KMOnlinePages {

enum Page { Manual, Update };

QUrl address(Page page); ///< empty when there is none, or none of the web
bool open(Page page);    ///< false when there is no address, or no browser that takes it

} // namespace KMOnlinePages
