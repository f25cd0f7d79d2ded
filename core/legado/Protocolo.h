#pragma once
// What the reader of legacy files (the program adq-lector-legado, which alone links libmdb) writes on its
// standard output for the program to read: the tables of the file, each with its columns and indexes, then
// its rows, the values as the file stores them. Numbers are little-endian. The program checks every length
// against what is left of the stream and against the file's size, so that a reader that dies halfway, or
// writes nonsense, ends in a clear error and never in a crash.
//
//   stream   := "ADQL" u8:versión-del-protocolo u8:versión-del-archivo (0 el formato de 1997, 1 el de 2000)
//               { tabla | aviso } ( fin | error )
//   tabla    := 'T' texto:nombre u32:filas-según-el-archivo u16:n { columna }n u16:m { indice }m
//               { 'R' { valor }n } 'F' u32:filas
//   columna  := texto:nombre u8:tipo u16:tamaño u8:precisión u8:escala u8:marcas
//   indice   := texto:nombre u8:clase u8:marcas u8:k { u16:columna u8:orden }k
//   valor    := u32:bytes (0xFFFFFFFF: Null) bytes
//   aviso    := 'A' texto          (a value the reader could not take whole; the row goes on)
//   error    := 'E' texto          (the reader stops)
//   fin      := 'Z'
//   texto    := u32:bytes UTF-8
//
// A Yes/No value is one byte, 1 or 0. A Memo, OLE or binary value is its whole content, gathered from the
// pages it spans; a Text or Memo value keeps the file's encoding (Windows-1252 in the 1997 format, UCS-2 with
// or without compression in the 2000 format).
#include <cstdint>

namespace legado::protocolo {

inline constexpr char Firma[4] = {'A', 'D', 'Q', 'L'};
inline constexpr std::uint8_t Version = 1;
inline constexpr std::uint32_t Nulo = 0xFFFFFFFFu;

enum Marca : char { Tabla = 'T', Fila = 'R', FinTabla = 'F', Aviso = 'A', Error = 'E', Fin = 'Z' };

// Column types as the file stores them.
enum TipoArchivo : std::uint8_t {
    SiNo = 0x01, Byte = 0x02, Entero = 0x03, EnteroLargo = 0x04, Moneda = 0x05, Simple = 0x06, Doble = 0x07,
    FechaHora = 0x08, Binario = 0x09, Texto = 0x0A, Ole = 0x0B, Memo = 0x0C, Guid = 0x0F, Numerico = 0x10
};

// The bytes a stored value of a fixed-size type takes; -1 for the types of variable length.
constexpr int TamanoAlmacenado(int tipo) {
    switch (tipo) {
    case SiNo: case Byte: return 1;
    case Entero: return 2;
    case EnteroLargo: case Simple: return 4;
    case Moneda: case Doble: case FechaHora: return 8;
    case Guid: return 16;
    case Numerico: return 17;
    default: return -1;
    }
}

// Column flags.
enum : std::uint8_t { ColumnaFija = 1, ColumnaContador = 2, ColumnaGuidAutomatico = 4 };
// Index classes and flags.
enum : std::uint8_t { IndicePrimario = 1, IndiceRelacion = 2 };
enum : std::uint8_t { IndiceUnico = 0x01, IndiceIgnoraNulos = 0x02, IndiceRequerido = 0x08 };

// How the reader ends when it can't go on; the program tells each in Spanish.
enum Salida : int { SalidaBien = 0, SalidaUso = 2, SalidaNoAbre = 3, SalidaEscritura = 4 };

}  // namespace legado::protocolo
