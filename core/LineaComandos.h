#pragma once
// The password given on the command line ("-u usuario -p clave" of the program, "adq-util analista BASE
// LOGIN CLAVE") is visible to every user of the machine in /proc/<pid>/cmdline, which shows the program's
// own argv memory. Once read, its bytes are overwritten there with zeros.
#include <QString>

namespace linea {

// Zeros over one argument's bytes, in place.
void BorraArgumento(char* argumento);

// The password of "-u usuario -p clave" as the main window reads it: everything after the first "-p",
// when it comes behind the first "-u", in the arguments from argv[desde] on joined by spaces.
void BorraClaveDeLaLinea(int argc, char** argv, int desde = 1);

}  // namespace linea
