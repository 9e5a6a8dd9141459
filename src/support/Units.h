#pragma once

/// Units, numbers, angles and bulges.
#include "support/Angles.h"
#include "support/Bulges.h"
#include "support/DimScale.h"
#include "support/Inches.h"
#include "support/NumberText.h"
