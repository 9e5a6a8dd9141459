// A side library that lacks two of the four functions.

extern "C" int krIsBulge6000(double bulge) {
  return bulge >= 6000.0 && bulge < 7000.0 ? 1 : 0;
}

extern "C" void krMidArco(const double*, const double*, double, double*) {}
