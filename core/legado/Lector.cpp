#include "core/legado/Lector.h"

#include "core/legado/Protocolo.h"

// mdbtools.h includes glib inside extern "C", where glib's C++ parts can't stand: glib comes first.
#include <glib.h>
#include <iconv.h>
#include <mdbtools.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace legado {

namespace {

namespace p = protocolo;

// The definition of the catalog of objects lies on the third page in both generations.
constexpr std::uint64_t PaginaCatalogo = 2;

// Output in blocks, sent at least every quarter second so that the program sees the reader is alive.
class Salida {
public:
    explicit Salida(int fd) : fd_(fd) { buf_.reserve(Bloque + 1024); }
    ~Salida() { envia(); }

    void u8(std::uint8_t v) { buf_.push_back(static_cast<char>(v)); }
    void u16(std::uint32_t v) {
        u8(v & 0xFF);
        u8((v >> 8) & 0xFF);
    }
    void u32(std::uint32_t v) {
        u16(v & 0xFFFF);
        u16(v >> 16);
    }
    void bytes(const void* datos, std::size_t n) {
        u32(static_cast<std::uint32_t>(n));
        buf_.append(static_cast<const char*>(datos), n);
        if (buf_.size() >= Bloque) envia();
    }
    void texto(const char* t) { bytes(t, std::strlen(t)); }
    void crudo(const void* datos, std::size_t n) { buf_.append(static_cast<const char*>(datos), n); }
    void nulo() { u32(p::Nulo); }
    void marca(char m) { u8(static_cast<std::uint8_t>(m)); }
    // Sends what is kept if it has waited long enough.
    void alDia() {
        const auto ahora = std::chrono::steady_clock::now();
        if (ahora - ultimo_ > std::chrono::milliseconds(250)) envia();
    }
    void envia() {
        std::size_t hecho = 0;
        while (hecho < buf_.size()) {
            const ssize_t n = ::write(fd_, buf_.data() + hecho, buf_.size() - hecho);
            if (n < 0 && errno == EINTR) continue;
            // Nobody reads any longer: the program gave up on this file.
            if (n <= 0) ::_exit(p::SalidaEscritura);
            hecho += static_cast<std::size_t>(n);
        }
        buf_.clear();
        ultimo_ = std::chrono::steady_clock::now();
    }

private:
    static constexpr std::size_t Bloque = 64 * 1024;
    int fd_;
    std::string buf_;
    std::chrono::steady_clock::time_point ultimo_ = std::chrono::steady_clock::now();
};

std::uint32_t Entero32(const unsigned char* b) {
    return static_cast<std::uint32_t>(b[0]) | (static_cast<std::uint32_t>(b[1]) << 8) |
           (static_cast<std::uint32_t>(b[2]) << 16) | (static_cast<std::uint32_t>(b[3]) << 24);
}

// Whether page `pagina` of the file is a table definition: read here, through a descriptor of this
// reading's own, before libmdb trusts it.
bool EsDefinicion(int fd, std::uint64_t pagina, int tamanoPagina, std::uint64_t paginas) {
    if (pagina == 0 || pagina >= paginas) return false;
    unsigned char tipo = 0xFF;
    if (::pread(fd, &tipo, 1, static_cast<off_t>(pagina * static_cast<std::uint64_t>(tamanoPagina))) != 1) return false;
    return tipo == MDB_PAGE_TABLE;
}

class Lectura {
public:
    Lectura(MdbHandle* mdb, Salida& out, int fd, std::uint64_t tamanoArchivo)
        : mdb_(mdb), out_(out), fd_(fd), paginas_(tamanoArchivo / static_cast<std::uint64_t>(mdb->fmt->pg_size)),
          tamanoArchivo_(tamanoArchivo) {}

    bool esDefinicion(std::uint64_t pagina) const { return EsDefinicion(fd_, pagina, static_cast<int>(mdb_->fmt->pg_size), paginas_); }

    // False when the table can't be read: the error has been written and the reading ends.
    bool tabla(MdbCatalogEntry* entrada, bool soloEsquema);

private:
    MdbHandle* mdb_;
    Salida& out_;
    int fd_;
    std::uint64_t paginas_;
    std::uint64_t tamanoArchivo_;
    std::string largo_;

    void aviso(const std::string& tabla, const std::string& columna, const char* que) {
        out_.marca(p::Aviso);
        out_.texto(("La columna '" + columna + "' de la tabla '" + tabla + "' " + que).c_str());
    }
    // A Memo or OLE value: 12 bytes in the row tell where its content lies. False when it can't be followed.
    bool valorLargo(const unsigned char* cabecera, int tamano);
    bool filaLval(std::uint32_t pgFila, const unsigned char*& datos, std::size_t& n);
};

bool Lectura::filaLval(std::uint32_t pgFila, const unsigned char*& datos, std::size_t& n) {
    const std::uint32_t pagina = pgFila >> 8;
    if (pagina == 0 || pagina >= paginas_) return false;
    void* buf = nullptr;
    int inicio = 0;
    std::size_t largo = 0;
    if (mdb_find_pg_row(mdb_, static_cast<int>(pgFila), &buf, &inicio, &largo) != 0) return false;
    const auto* pag = static_cast<const unsigned char*>(buf);
    // A page of long values: a data page marked "LVAL".
    if (pag[0] != MDB_PAGE_DATA || std::memcmp(pag + 4, "LVAL", 4) != 0) return false;
    if (inicio < 0 || static_cast<std::size_t>(inicio) + largo > static_cast<std::size_t>(mdb_->fmt->pg_size)) return false;
    datos = pag + inicio;
    n = largo;
    return true;
}

bool Lectura::valorLargo(const unsigned char* cabecera, int tamano) {
    largo_.clear();
    if (tamano < MDB_MEMO_OVERHEAD) return false;
    const std::uint32_t marca = Entero32(cabecera);
    const std::uint32_t declarado = marca & 0x3FFFFFFFu;
    if (marca & 0x80000000u) {
        // Inside the row.
        largo_.assign(reinterpret_cast<const char*>(cabecera + MDB_MEMO_OVERHEAD), static_cast<std::size_t>(tamano - MDB_MEMO_OVERHEAD));
        return true;
    }
    std::uint32_t pgFila = Entero32(cabecera + 4);
    if (marca & 0x40000000u) {
        // On one page.
        const unsigned char* datos = nullptr;
        std::size_t n = 0;
        if (!filaLval(pgFila, datos, n)) return false;
        largo_.assign(reinterpret_cast<const char*>(datos), n);
        return true;
    }
    if ((marca & 0xC0000000u) != 0) return false;
    // Over a chain of pages, each piece headed by where the next one lies. A chain longer than the file, or
    // content beyond the declared length, is a damaged chain.
    if (declarado > tamanoArchivo_) return false;
    std::uint64_t vueltas = 0;
    while (pgFila != 0) {
        if (++vueltas > paginas_) return false;
        const unsigned char* datos = nullptr;
        std::size_t n = 0;
        if (!filaLval(pgFila, datos, n) || n < 4) return false;
        if (largo_.size() + (n - 4) > declarado) return false;
        largo_.append(reinterpret_cast<const char*>(datos + 4), n - 4);
        pgFila = Entero32(datos);
    }
    return largo_.size() == declarado;
}

bool Lectura::tabla(MdbCatalogEntry* entrada, bool soloEsquema) {
    // libmdb reads a table's definition from the page the catalog names, whatever that page holds.
    MdbTableDef* t = esDefinicion(entrada->table_pg) ? mdb_read_table(entrada) : nullptr;
    if (!t) {
        out_.marca(p::Error);
        out_.texto((std::string("no se pudo leer la definición de la tabla '") + entrada->object_name + "'").c_str());
        return false;
    }
    mdb_read_columns(t);
    mdb_read_indices(t);
    const std::string nombreTabla = entrada->object_name;
    const unsigned n = t->num_cols;
    out_.marca(p::Tabla);
    out_.texto(entrada->object_name);
    out_.u32(t->num_rows);
    out_.u16(n);
    std::vector<MdbColumn*> columnas(n);
    for (unsigned i = 0; i < n; ++i) {
        MdbColumn* c = static_cast<MdbColumn*>(g_ptr_array_index(t->columns, i));
        columnas[i] = c;
        out_.texto(c->name);
        out_.u8(static_cast<std::uint8_t>(c->col_type));
        out_.u16(static_cast<std::uint32_t>(c->col_size) & 0xFFFF);
        out_.u8(static_cast<std::uint8_t>(c->col_prec));
        out_.u8(static_cast<std::uint8_t>(c->col_scale));
        out_.u8(static_cast<std::uint8_t>((c->is_fixed ? p::ColumnaFija : 0) | (c->is_long_auto ? p::ColumnaContador : 0) |
                                          (c->is_uuid_auto ? p::ColumnaGuidAutomatico : 0)));
    }
    const unsigned nIndices = t->indices ? t->indices->len : 0;
    out_.u16(nIndices);
    for (unsigned i = 0; i < nIndices; ++i) {
        MdbIndex* x = static_cast<MdbIndex*>(g_ptr_array_index(t->indices, i));
        out_.texto(x->name);
        out_.u8(x->index_type);
        out_.u8(x->flags);
        const unsigned claves = x->num_keys <= MDB_MAX_IDX_COLS ? x->num_keys : 0;
        out_.u8(static_cast<std::uint8_t>(claves));
        for (unsigned k = 0; k < claves; ++k) {
            out_.u16(static_cast<std::uint32_t>(x->key_col_num[k] - 1) & 0xFFFF);
            out_.u8(x->key_col_order[k]);
        }
    }
    std::uint32_t filas = 0;
    if (!soloEsquema && n > 0) {
        std::vector<MdbField> campos(n);
        const int tamanoPagina = static_cast<int>(mdb_->fmt->pg_size);
        mdb_rewind_table(t);
        while (mdb_fetch_row(t)) {
            int inicio = 0;
            std::size_t largo = 0;
            if (mdb_find_row(mdb_, static_cast<int>(t->cur_row) - 1, &inicio, &largo) != 0) continue;
            inicio &= 0x1FFF;
            if (largo == 0 || inicio + static_cast<int>(largo) > tamanoPagina) continue;
            if (mdb_crack_row(t, inicio, largo, campos.data()) < 0) continue;
            const int finFila = inicio + static_cast<int>(largo);
            out_.marca(p::Fila);
            for (unsigned i = 0; i < n; ++i) {
                const MdbColumn* c = columnas[i];
                const MdbField& f = campos[i];
                if (c->col_type == MDB_BOOL) {
                    const std::uint8_t v = f.is_null ? 0 : 1;
                    out_.bytes(&v, 1);
                    continue;
                }
                if (f.is_null) {
                    out_.nulo();
                    continue;
                }
                // What libmdb found for the value must lie inside the row.
                if (f.siz < 0 || f.start < inicio || f.start + f.siz > finFila) {
                    aviso(nombreTabla, c->name, "tiene un valor fuera de su fila; se deja vacío.");
                    out_.nulo();
                    continue;
                }
                const unsigned char* v = mdb_->pg_buf + f.start;
                const int fijo = p::TamanoAlmacenado(c->col_type);
                if (fijo > 0) {
                    if (f.siz != fijo) {
                        aviso(nombreTabla, c->name, "tiene un valor de tamaño equivocado; se deja vacío.");
                        out_.nulo();
                    } else {
                        out_.bytes(v, static_cast<std::size_t>(fijo));
                    }
                } else if (c->col_type == MDB_MEMO || c->col_type == MDB_OLE) {
                    if (f.siz == 0) {
                        out_.bytes("", 0);
                    } else if (valorLargo(v, f.siz)) {
                        out_.bytes(largo_.data(), largo_.size());
                    } else {
                        aviso(nombreTabla, c->name, "tiene un valor largo dañado; se deja vacío.");
                        out_.nulo();
                    }
                } else {
                    out_.bytes(v, static_cast<std::size_t>(f.siz));
                }
            }
            ++filas;
            if ((filas & 0xFF) == 0) out_.alDia();
        }
    }
    out_.marca(p::FinTabla);
    out_.u32(filas);
    out_.envia();
    mdb_free_tabledef(t);
    return true;
}

}  // namespace

int LeeConLibmdb(const char* ruta, int fd, bool soloEsquema) {
    struct stat st {};
    if (::stat(ruta, &st) != 0) return p::SalidaNoAbre;
    MdbHandle* mdb = mdb_open(ruta, MDB_NOFLAGS);
    if (!mdb) return p::SalidaNoAbre;
    const int propio = ::open(ruta, O_RDONLY | O_CLOEXEC);
    {
        Salida out(fd);
        out.crudo(p::Firma, sizeof p::Firma);
        out.u8(p::Version);
        out.u8(static_cast<std::uint8_t>(mdb->f->jet_version));
        Lectura lectura(mdb, out, propio, static_cast<std::uint64_t>(st.st_size));
        if (propio < 0 || !lectura.esDefinicion(PaginaCatalogo) || !mdb_read_catalog(mdb, MDB_TABLE)) {
            out.marca(p::Error);
            out.texto("no se pudo leer el catálogo de tablas");
        } else {
            bool bien = true;
            for (unsigned i = 0; bien && i < mdb->num_catalog; ++i) {
                auto* e = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
                if (e->object_type != MDB_TABLE || !mdb_is_user_table(e)) continue;
                bien = lectura.tabla(e, soloEsquema);
            }
            if (bien) out.marca(p::Fin);
        }
    }
    mdb_close(mdb);
    if (propio >= 0) ::close(propio);
    return p::SalidaBien;
}

}  // namespace legado
