// A library with nothing in it, to be found or not.
extern "C" __declspec(dllexport) int TidewardenProbe() {
  return 1;
}
