#pragma once

/// The chief header: everything that the module exports.
#include "frame/About.h"
#include "frame/Commands.h"
#include "frame/Module.h"
#include "object/KrObject.h"
#include "profiles/KrBarraRedonda.h"
#include "profiles/KrTubo.h"
#include "support/Angles.h"
#include "support/Bulges.h"
#include "support/Database.h"
#include "support/InstallFolder.h"
#include "support/Layers.h"
#include "support/SideLibrary.h"
