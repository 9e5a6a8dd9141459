#pragma once

/// The editor: documents, commands, prompts, selection sets, system variables, text and value services.
#include "host/ed/AcApDocManager.h"
#include "host/ed/AcApDocument.h"
#include "host/ed/AcEdCommand.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEditor.h"
#include "host/ed/AcEditorReactor.h"
#include "host/ed/Console.h"
#include "host/ed/ModuleLoader.h"
#include "host/ed/Prompts.h"
#include "host/ed/acdbServices.h"
#include "host/ed/aced.h"
#include "host/ed/acut.h"
#include "host/ed/geassign.h"
#include "host/ed/sysvars.h"
