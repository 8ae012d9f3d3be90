// Measures properties that are set from texts and read as texts, and handles, all contenders in
// turns, and prints how the library stands against each.

#include "Handles.h"
#include "properties.h"

#include <graphics/datatype/vgdatatypes.h>

int main(int argc, char** argv) {
  measuring::takeArguments(argc, argv);
  VLInitialize_vgdatatypes();
  properties::addLibrary();
  properties::addContenders();
  addHandles();
  measuring::printComparisons(measuring::runBenchmarks());
}
