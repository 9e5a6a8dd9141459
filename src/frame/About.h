#pragma once

/// What the product tells of itself.
struct About {
  const wchar_t* productVersion;
  int objectVersion;
  const wchar_t* buildDate;
  const wchar_t* buildTime;
};

/// The data of this build.
const About& about();
