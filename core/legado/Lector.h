#pragma once
// The reading of a legacy file with libmdb, as the program adq-lector-legado runs it in a process of its
// own: libmdb trusts what the file says, so a damaged page may crash it or keep it reading for ever, and
// only a child process that the program can watch, time and kill keeps that from the program. What it reads
// goes out in the form of core/legado/Protocolo.h.
namespace legado {

// Writes the tables of `ruta` (with their rows unless soloEsquema) to the descriptor `salida`. Returns the
// process's exit code (protocolo::Salida).
int LeeConLibmdb(const char* ruta, int salida, bool soloEsquema);

}  // namespace legado
