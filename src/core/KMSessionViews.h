#pragma once

/// What the session asks of the viewports.
class KMSessionViews
{
public:
    virtual ~KMSessionViews() = default;

    virtual void refreshViews(int mask) = 0; ///< repaint; a bit for each kind of view, 31 for all
    virtual void resetCamera() = 0;          ///< of the current view: back to where it was at first
    virtual void resetViews() = 0;           ///< another document comes: cameras and options as in a new one
};
