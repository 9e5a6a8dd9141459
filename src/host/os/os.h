#pragma once

/// The few operating-system names that members and the host use.
#include "host/os/CodePage.h"
#include "host/os/DynamicLibrary.h"
#include "host/os/Environment.h"
#include "host/os/FileSystem.h"
#include "host/os/Format.h"
#include "host/os/Path.h"
#include "host/os/ReplaceFile.h"
#include "host/os/Text.h"
#include "host/os/TextFile.h"
