#pragma once

/// A module is locked in memory until it asks to be unlockable. Both return true when the state is as asked.
bool acrxUnlockApplication(void* appId);
bool acrxLockApplication(void* appId);
bool acrxApplicationIsLocked(void* appId);

/// A module that works with several documents open says so at its start.
bool acrxRegisterAppMDIAware(void* appId);
bool acrxRegisterAppNotMDIAware(void* appId);
bool acrxIsAppMDIAware(void* appId);
