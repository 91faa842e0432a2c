#pragma once

/// Makes the pictures, icons and shaders compiled into the static library reachable under ":/".
/// Every program calls it once before it uses a resource; further calls do nothing.
void initKelmoResources();
