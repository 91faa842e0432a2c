#pragma once

#include "formats/KMExchangeFormat.h"

KMExchangeFormat pmxFormat(); ///< the row of models for players of motions
