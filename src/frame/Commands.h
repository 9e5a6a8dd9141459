#pragma once

class AcEdCommandStack;

/// The module's own commands: SOBREKR_TRAMA tells the product's version and build, KRLISTBYHANDLE (KRLBH) lists an
/// object by its handle.
void registerCommands(AcEdCommandStack& stack);
void removeCommands(AcEdCommandStack& stack);

/// The groups of maintenance tools and of samples.
void registerMaintenanceCommands(AcEdCommandStack& stack);
void removeMaintenanceCommands(AcEdCommandStack& stack);
