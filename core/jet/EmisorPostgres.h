#pragma once
// PROVISIONAL stand-in until the real generator lands.
#include "core/jet/EmisorSqlite.h"
namespace jet {
class EmisorPostgres : public EmisorSqlite {};
}
