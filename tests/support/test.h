// Everything that a test needs.
#pragma once

#include "support/badArguments.h"
#include "support/compare.h"
#include "support/fill.h"
#include "support/longMemory.h"
#include "support/memory.h"
#include "support/models.h"
#include "support/modes.h"
#include "support/random.h"
#include "support/sweep.h"
#include "zels.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace support;
