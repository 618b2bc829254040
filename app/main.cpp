#include "avvio.h"

int main(int argc, char** argv) { return Avvio(argc, argv); }
