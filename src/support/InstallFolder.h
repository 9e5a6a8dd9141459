#pragma once

/// The folder in which the product is installed, from the environment; null when the variable isn't set.
const wchar_t* installFolder();
