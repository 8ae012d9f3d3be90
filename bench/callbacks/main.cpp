// Measures events that are fired and callbacks that wait in a queue, all contenders in turns, and
// prints how the library stands against each.

#include "contest.h"

#include <graphics/datatype/vgdatatypes.h>

int main(int argc, char** argv) {
  measuring::takeArguments(argc, argv);
  VLInitialize_vgdatatypes();
  callbacks::addLibrary();
  callbacks::addContenders();
  measuring::printComparisons(measuring::runBenchmarks());
}
