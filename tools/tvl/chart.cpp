#include "table_format.h"
namespace tvlcli { int runChart(int, char**) { return 1; } }
