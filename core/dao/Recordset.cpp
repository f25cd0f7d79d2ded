#include "core/dao/Dao.h"

#include "core/jet/ConexionPostgres.h"
#include "core/jet/EmisorPostgres.h"
#include "core/jet/EmisorSqlite.h"
#include "core/jet/ErroresMotor.h"
#include "core/jet/EsquemaPostgres.h"
#include "core/jet/FuncionesSqlite.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>

namespace dao {

using namespace jet;

Recordset::~Recordset() { Close(); }

Recordset::Filas::~Filas() {
    if (!libres_) return;
    auto& l = libres_->bloques;
    while (!bloques_.empty() && l.size() < BloquesLibres::Maximo) {
        l.push_back(std::move(bloques_.back()));
        bloques_.pop_back();
    }
}

void Recordset::Filas::reinicia(int ancho, bool porClave, std::shared_ptr<BloquesLibres> libres) {
    ancho_ = ancho;
    porClave_ = porClave;
    enUso_ = 0;
    grandes_.clear();
    libres_ = std::move(libres);
    libre_ = 0;
    cursor_ = nullptr;
    inicio_.clear();
    ids_.clear();
    aparte_.assign(static_cast<size_t>(ancho), ValorCrudo{});
    filaAparte_ = -1;
}

// The next block to write into: one already held, else one given back by another store, else a new one.
char* Recordset::Filas::siguienteBloque() {
    if (enUso_ == bloques_.size()) {
        if (libres_ && !libres_->bloques.empty()) {
            bloques_.push_back(std::move(libres_->bloques.back()));
            libres_->bloques.pop_back();
        } else {
            bloques_.emplace_back(new char[BloquesLibres::Tamano]);
        }
    }
    cursor_ = bloques_[enUso_++].get();
    libre_ = BloquesLibres::Tamano;
    return cursor_;
}

char* Recordset::Filas::reserva(size_t bytes) {
    if (bytes > libre_) {
        if (bytes > BloquesLibres::Tamano) {
            grandes_.emplace_back(new char[bytes]);
            return grandes_.back().get();
        }
        siguienteBloque();
    }
    char* p = cursor_;
    cursor_ += bytes;
    libre_ -= bytes;
    return p;
}

namespace {

size_t Tamano(const ValorCrudo& v) {
    switch (v.clase) {
    case SQLITE_INTEGER:
    case SQLITE_FLOAT: return 1 + 8;
    case SQLITE_TEXT:
    case SQLITE_BLOB: return 1 + sizeof(qint32) + static_cast<size_t>(v.bytes);
    default: return 1;
    }
}

}  // namespace

// The texts of `valores` are left pointing at their copies in the store.
void Recordset::Filas::escribe(ValorCrudo* valores) {
    size_t total = 0;
    for (int i = 0; i < ancho_; ++i) total += Tamano(valores[i]);
    char* p = reserva(total);
    inicio_.push_back(p);
    for (int i = 0; i < ancho_; ++i) {
        ValorCrudo& v = valores[i];
        *p++ = static_cast<char>(v.clase);
        switch (v.clase) {
        case SQLITE_INTEGER: std::memcpy(p, &v.entero, 8); p += 8; break;
        case SQLITE_FLOAT: std::memcpy(p, &v.real, 8); p += 8; break;
        case SQLITE_TEXT:
        case SQLITE_BLOB: {
            const qint32 bytes = v.bytes;
            std::memcpy(p, &bytes, sizeof bytes);
            p += sizeof bytes;
            if (bytes > 0) std::memcpy(p, v.texto, static_cast<size_t>(bytes));
            v.texto = p;
            p += bytes;
            break;
        }
        default: break;
        }
    }
}

// Room for `falta` more bytes of the row being written in [fila, p): what is written moves, whole, to a
// fresh block, or to a block of its own twice its size when the row outgrows a block. The texts of the
// first `hechas` columns are made to point at their new place.
void Recordset::Filas::amplia(char*& fila, char*& p, char*& fin, size_t falta, int hechas, bool& propio) {
    const size_t hecho = static_cast<size_t>(p - fila);
    char* nuevo;
    size_t tamano;
    if (hecho + falta <= BloquesLibres::Tamano) {
        nuevo = siguienteBloque();
        tamano = BloquesLibres::Tamano;
    } else {
        tamano = 2 * (hecho + falta);
        grandes_.emplace_back(new char[tamano]);
        nuevo = grandes_.back().get();
        propio = true;
    }
    if (hecho > 0) std::memcpy(nuevo, fila, hecho);
    for (int j = 0; j < hechas; ++j) {
        ValorCrudo& c = aparte_[static_cast<size_t>(j)];
        if (c.clase == SQLITE_TEXT || c.clase == SQLITE_BLOB) c.texto = nuevo + (c.texto - fila);
    }
    fila = nuevo;
    p = nuevo + hecho;
    fin = nuevo + tamano;
}

void Recordset::Filas::agregaDeSentencia(sqlite3_stmt* st) {
    // Each value is read into the row kept apart and written into the store at once. Once written, the
    // row's texts point into the store and it is the new last row, the one a forward walk reads next.
    char* fila = cursor_;
    char* p = cursor_;
    char* fin = cursor_ + libre_;
    bool propio = false;              // in a block of its own, outside the run of blocks
    ValorCrudo* v = aparte_.data();
    for (int i = 0; i < ancho_; ++i) {
        sqlite3_value* x = sqlite3_column_value(st, i);
        ValorCrudo& c = v[i];
        c.clase = sqlite3_value_type(x);
        switch (c.clase) {
        case SQLITE_INTEGER:
        case SQLITE_FLOAT:
            if (fin - p < 1 + 8) amplia(fila, p, fin, 1 + 8, i, propio);
            *p = static_cast<char>(c.clase);
            if (c.clase == SQLITE_INTEGER) {
                c.entero = sqlite3_value_int64(x);
                std::memcpy(p + 1, &c.entero, 8);
            } else {
                c.real = sqlite3_value_double(x);
                std::memcpy(p + 1, &c.real, 8);
            }
            p += 1 + 8;
            break;
        case SQLITE_TEXT:
        case SQLITE_BLOB: {
            const char* t = c.clase == SQLITE_TEXT ? reinterpret_cast<const char*>(sqlite3_value_text(x))
                                                   : static_cast<const char*>(sqlite3_value_blob(x));
            const qint32 n = sqlite3_value_bytes(x);
            const size_t largo = 1 + sizeof n + static_cast<size_t>(n);
            if (static_cast<size_t>(fin - p) < largo) amplia(fila, p, fin, largo, i, propio);
            *p = static_cast<char>(c.clase);
            std::memcpy(p + 1, &n, sizeof n);
            if (n > 0) std::memcpy(p + 1 + sizeof n, t, static_cast<size_t>(n));
            c.texto = p + 1 + sizeof n;
            c.bytes = n;
            p += largo;
            break;
        }
        default:
            if (fin - p < 1) amplia(fila, p, fin, 1, i, propio);
            *p++ = static_cast<char>(c.clase);
            break;
        }
    }
    if (!propio) {
        cursor_ = p;
        libre_ = static_cast<size_t>(fin - p);
    }
    inicio_.push_back(fila);
    filaAparte_ = size() - 1;
}

namespace {

// A value in its stored form, with the bytes of its text kept alive by `texto`.
ValorCrudo CrudoDeVariante(const vb::Variant& v, QByteArray& texto) {
    ValorCrudo c;
    switch (v.type()) {
    case vb::VarType::Empty:
    case vb::VarType::Null: break;
    case vb::VarType::Integer:
    case vb::VarType::Long:
    case vb::VarType::Byte: c.clase = SQLITE_INTEGER; c.entero = v.toLong(); break;
    case vb::VarType::Boolean: c.clase = SQLITE_INTEGER; c.entero = v.toBool() ? -1 : 0; break;
    case vb::VarType::Currency: c.clase = SQLITE_INTEGER; c.entero = v.toCurrency().raw(); break;
    case vb::VarType::Single:
    case vb::VarType::Double: c.clase = SQLITE_FLOAT; c.real = v.toDouble(); break;
    case vb::VarType::Date:
    case vb::VarType::String:
        texto = v.type() == vb::VarType::Date ? v.toDate().toIso().toUtf8() : v.toString().toUtf8();
        c.clase = SQLITE_TEXT;
        c.texto = texto.constData();
        c.bytes = static_cast<int>(texto.size());
        break;
    }
    return c;
}

}  // namespace

void Recordset::Filas::agrega(const vb::Variant* valores) {
    std::vector<QByteArray> textos(static_cast<size_t>(ancho_));
    std::vector<ValorCrudo> crudos(static_cast<size_t>(ancho_));
    for (int i = 0; i < ancho_; ++i) crudos[static_cast<size_t>(i)] = CrudoDeVariante(valores[i], textos[static_cast<size_t>(i)]);
    escribe(crudos.data());
    olvidaAparte();
}

void Recordset::Filas::reemplaza(long fila, const vb::Variant* valores) {
    std::vector<QByteArray> textos(static_cast<size_t>(ancho_));
    std::vector<ValorCrudo> crudos(static_cast<size_t>(ancho_));
    for (int i = 0; i < ancho_; ++i) crudos[static_cast<size_t>(i)] = CrudoDeVariante(valores[i], textos[static_cast<size_t>(i)]);
    reemplazaCrudos(fila, crudos.data());
}

void Recordset::Filas::reemplazaCrudos(long fila, ValorCrudo* valores) {
    // The new values are written anew; the row's old bytes are left unused.
    escribe(valores);
    inicio_[static_cast<size_t>(fila)] = inicio_.back();
    inicio_.pop_back();
    olvidaAparte();
}

void Recordset::Filas::borra(long fila) {
    if (porClave_) ids_.erase(ids_.begin() + fila);
    else inicio_.erase(inicio_.begin() + fila);
    olvidaAparte();
}

const ValorCrudo& Recordset::Filas::crudo(long fila, int columna) const {
    if (fila != filaAparte_) {
        const char* p = inicio_[static_cast<size_t>(fila)];
        for (int i = 0; i < ancho_; ++i) {
            ValorCrudo& v = aparte_[static_cast<size_t>(i)];
            v = ValorCrudo{};
            v.clase = static_cast<unsigned char>(*p++);
            switch (v.clase) {
            case SQLITE_INTEGER: std::memcpy(&v.entero, p, sizeof v.entero); p += sizeof v.entero; break;
            case SQLITE_FLOAT: std::memcpy(&v.real, p, sizeof v.real); p += sizeof v.real; break;
            case SQLITE_TEXT:
            case SQLITE_BLOB: {
                qint32 n = 0;
                std::memcpy(&n, p, sizeof n);
                p += sizeof n;
                v.texto = p;
                v.bytes = n;
                p += n;
                break;
            }
            default: break;
            }
        }
        filaAparte_ = fila;
    }
    return aparte_[static_cast<size_t>(columna)];
}

void Recordset::Close() {
    if (st_) {
        sqlite3_finalize(st_);
        st_ = nullptr;
    }
    if (stFila_) {
        sqlite3_finalize(stFila_);
        stFila_ = nullptr;
    }
    // Nothing is read any more, not even on the inline road.
    filaEnSentencia_ = -1;
    filas_.olvidaAparte();
    cerrado_ = true;
    if (registrado_ && db_) {
        auto& l = db_->abiertos_;
        l.erase(std::remove(l.begin(), l.end(), this), l.end());
        registrado_ = false;
    }
}

void Recordset::abre() {
    Sentencia s = Analiza(sql_);
    if (s.clase != Sentencia::Consulta) Lanza(ErrOperacionNoValida);
    Resolver resolver(db_->catalogo());
    resolver.resuelve(s);
    const bool escribible = tipo_ == dbOpenTable || tipo_ == dbOpenDynaset;
    Emision e = db_->EnServidor() ? EmisorPostgres().emite(s, nullptr, escribible)
                                  : EmisorSqlite(db_->monedaAntigua()).emite(s, nullptr, escribible);
    columnas_ = e.columnas;
    actualizable_ = e.actualizable;
    tabla_.reset();
    if (actualizable_) {
        const TablaDef* t = db_->catalogo().tabla(e.tablaBase);
        if (t) tabla_ = *t;
        else actualizable_ = false;
    }
    columnaRowid_ = actualizable_ ? static_cast<int>(columnas_.size()) : -1;
    porClave_ = actualizable_ && !db_->EnServidor();
    releeServidor_ = actualizable_ && db_->EnServidor();
    valoresAlDia_ = true;
    escritoDesdeApertura_ = false;
    vistasHasta_ = -1;
    sqlPorFila_ = e.sqlPorFila;
    filaEnSentencia_ = -1;
    filaEnCache_ = -1;
    cambiosVistos_ = db_->EnServidor() ? 0 : sqlite3_total_changes64(db_->sqlite());
    if (stFila_) {
        sqlite3_finalize(stFila_);
        stFila_ = nullptr;
    }
    tipos_.clear();
    for (const auto& c : columnas_) tipos_.push_back(c.tipo);

    campos_.campos_.clear();
    for (size_t i = 0; i < columnas_.size(); ++i) {
        const ColumnaSalida& c = columnas_[i];
        CampoDef d;
        d.nombre = c.nombre;
        d.tipo = c.tipo == TipoCampo::Ninguno ? TipoCampo::Text : c.tipo;
        d.tamano = c.tipo == TipoCampo::Ninguno ? 255 : c.tamano;
        d.atributos = actualizable_ ? c.atributos : (c.atributos & ~AtrActualizable);
        d.requerido = c.requerido;
        d.permiteLongitudCero = c.permiteLongitudCero;
        d.predeterminado = c.valorPredeterminado;
        d.ordinal = static_cast<int>(i);
        auto f = std::make_unique<Field>(d);
        f->origenTabla_ = c.tablaOrigen;
        f->rs_ = this;
        f->indice_ = static_cast<int>(i);
        f->tipoLectura_ = c.tipo;
        campos_.campos_.push_back(std::move(f));
    }

    if (st_) sqlite3_finalize(st_);
    st_ = nullptr;
    if (db_->EnServidor()) abreEnServidor(e);
    else abreEnArchivo(e);
    if (!registrado_) {
        db_->abiertos_.push_back(this);
        registrado_ = true;
    }
    modo_ = dbEditNone;
    actualBorrado_ = false;
    cerrado_ = false;
    if (db_->EnServidor() ? !filas_.empty() : trae()) {
        pos_ = 0;
        bof_ = eof_ = false;
    } else {
        pos_ = 0;
        bof_ = eof_ = true;
    }
}

void Recordset::abreEnArchivo(const Emision& e) {
    const QByteArray u = e.sql.toUtf8();
    const int rc = sqlite3_prepare_v2(db_->sqlite(), u.constData(), static_cast<int>(u.size()), &st_, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(st_);
        st_ = nullptr;
        db_->lanzaSqlite(rc);
    }
    filas_.reinicia(static_cast<int>(tipos_.size()), porClave_, db_->bloquesLibres_);
    completo_ = false;
}

bool Recordset::trae() {
    if (completo_ || !st_) return false;
    const int rc = sqlite3_step(st_);
    if (rc == SQLITE_ROW) {
        if (porClave_) {
            filas_.agregaClave(sqlite3_column_int64(st_, columnaRowid_));
            filaEnSentencia_ = filas_.size() - 1;
        } else {
            filas_.agregaDeSentencia(st_);
        }
        return true;
    }
    completo_ = true;
    filaEnSentencia_ = -1;
    if (rc != SQLITE_DONE) {
        sqlite3_reset(st_);
        db_->lanzaSqlite(rc);
    }
    sqlite3_reset(st_);
    return false;
}

void Recordset::traeTodo() {
    while (trae()) {
    }
}

void Recordset::exigeActual() const {
    if (cerrado_) Lanza(ErrOperacionNoValida);
    if (bof_ || eof_ || actualBorrado_ || pos_ < 0 || pos_ >= filas_.size())
        Lanza(ErrNoHayRegistroActual);
}


void Recordset::situa(long indice) {
    // A dynaset shows each row as the table holds it when the walk reaches it: after a write, no row read
    // before it is trusted; each is read again by its id.
    if (porClave_) {
        const qint64 cambios = sqlite3_total_changes64(db_->sqlite());
        if (cambios != cambiosVistos_) {
            cambiosVistos_ = cambios;
            filaEnSentencia_ = -1;
            olvidaFila();
        }
    }
    if (releeServidor_) {
        valoresAlDia_ = !escritoDesdeApertura_ && indice > vistasHasta_;
        vistasHasta_ = std::max(vistasHasta_, indice);
    }
    while (indice >= filas_.size() && trae()) {
    }
    actualBorrado_ = false;
    if (indice < 0) {
        pos_ = -1;
        bof_ = true;
        eof_ = filas_.empty();
        return;
    }
    if (indice >= filas_.size()) {
        pos_ = filas_.size();
        eof_ = true;
        bof_ = filas_.empty();
        return;
    }
    pos_ = indice;
    bof_ = eof_ = false;
}

void Recordset::MoveFirst() {
    if (modo_ != dbEditNone) CancelUpdate();
    situa(0);
    if (eof_) Lanza(ErrNoHayRegistroActual);
}

void Recordset::MoveLast() {
    if (modo_ != dbEditNone) CancelUpdate();
    traeTodo();
    if (filas_.empty()) {
        situa(0);
        Lanza(ErrNoHayRegistroActual);
    }
    situa(filas_.size() - 1);
}

void Recordset::MoveNext() {
    if (eof_) Lanza(ErrNoHayRegistroActual);
    if (modo_ != dbEditNone) CancelUpdate();
    if (actualBorrado_) situa(pos_);            // the row after the deleted one now stands at its index
    else situa(pos_ + 1);
}

void Recordset::MovePrevious() {
    if (bof_) Lanza(ErrNoHayRegistroActual);
    if (modo_ != dbEditNone) CancelUpdate();
    situa(pos_ - 1);
}

void Recordset::Move(long filas) {
    if (modo_ != dbEditNone) CancelUpdate();
    if ((bof_ || eof_) && filas != 0 && filas_.empty()) Lanza(ErrNoHayRegistroActual);
    long base = pos_;
    if (bof_) base = -1;
    situa(base + filas);
}

long Recordset::AbsolutePosition() {
    if (bof_ || eof_ || actualBorrado_) return -1;
    return pos_;
}

void Recordset::setAbsolutePosition(long p) {
    traeTodo();
    if (p < 0 || p >= filas_.size()) Lanza(ErrOperacionNoValida);
    situa(p);
}

long Recordset::RecordCount() {
    traeTodo();
    return filas_.size();
}

void Recordset::busca(const QString& criterio, bool adelante, long desde) {
    ExprPtr e = AnalizaExpresion(criterio);
    Resolver resolver(db_->catalogo());
    resolver.resuelveCriterio(*e, columnas_);
    EmisorSqlite emisor(db_->monedaAntigua());
    const QByteArray u = (QStringLiteral("SELECT ") + emisor.expresion(*e)).toUtf8();
    sqlite3* motor = motorLocal();
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(motor, u.constData(), static_cast<int>(u.size()), &st, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(st);
        LanzaSqlite(motor, rc, db_->Name());
    }
    traeTodo();
    const int parametros = sqlite3_bind_parameter_count(st);
    const long n = filas_.size();
    long encontrado = -1;
    for (long i = desde; adelante ? i < n : i >= 0; i += adelante ? 1 : -1) {
        if (i < 0 || i >= n) continue;
        sqlite3_reset(st);
        for (int p = 1; p <= parametros && p <= static_cast<int>(tipos_.size()); ++p)
            Enlaza(st, p, valorEn(i, p - 1));
        rc = sqlite3_step(st);
        if (rc == SQLITE_ROW) {
            if (sqlite3_column_type(st, 0) != SQLITE_NULL && sqlite3_column_double(st, 0) != 0) {
                encontrado = i;
                break;
            }
        } else if (rc != SQLITE_DONE) {
            sqlite3_finalize(st);
            LanzaSqlite(motor, rc, db_->Name());
        }
    }
    sqlite3_finalize(st);
    if (modo_ != dbEditNone) CancelUpdate();
    noMatch_ = encontrado < 0;
    if (!noMatch_) situa(encontrado);
}

void Recordset::FindFirst(const QString& c) { busca(c, true, 0); }
void Recordset::FindLast(const QString& c) { traeTodo(); busca(c, false, filas_.size() - 1); }
void Recordset::FindNext(const QString& c) { busca(c, true, (bof_ ? -1 : actualBorrado_ ? pos_ - 1 : pos_) + 1); }
void Recordset::FindPrevious(const QString& c) { busca(c, false, (eof_ ? filas_.size() : pos_) - 1); }

vb::Variant Recordset::valorLento(int columna) const {
    if (modo_ != dbEditNone) return buffer_[static_cast<size_t>(columna)];
    exigeActual();
    alDia();
    return valorEn(pos_, columna);
}

vb::Variant Recordset::valorEn(long fila, int columna) const {
    const TipoCampo tipo = tipos_[static_cast<size_t>(columna)];
    if (!porClave_) return filas_.valor(fila, columna, tipo);
    if (fila == filaEnSentencia_) return LeeColumna(st_, columna, tipo);
    if (fila != filaEnCache_) {
        if (!stFila_) {
            const QByteArray u = sqlPorFila_.toUtf8();
            auto* yo = const_cast<Recordset*>(this);
            const int rc = sqlite3_prepare_v2(db_->sqlite(), u.constData(), static_cast<int>(u.size()), &yo->stFila_, nullptr);
            if (rc != SQLITE_OK) db_->lanzaSqlite(rc);
        }
        sqlite3_reset(stFila_);
        sqlite3_bind_int64(stFila_, 1, filas_.rowid(fila));
        const int rc = sqlite3_step(stFila_);
        if (rc == SQLITE_DONE) {
            sqlite3_reset(stFila_);
            Lanza(3167);                     // another hand deleted it
        }
        if (rc != SQLITE_ROW) {
            sqlite3_reset(stFila_);
            db_->lanzaSqlite(rc);
        }
        cache_.clear();
        for (size_t i = 0; i < tipos_.size(); ++i) cache_.push_back(LeeColumna(stFila_, static_cast<int>(i), tipos_[i]));
        sqlite3_reset(stFila_);
        filaEnCache_ = fila;
    }
    return cache_[static_cast<size_t>(columna)];
}

void Recordset::asigna(int columna, const vb::Variant& v) {
    if (modo_ == dbEditNone) Lanza(ErrSinAddNewNiEdit);
    const ColumnaSalida& c = columnas_[static_cast<size_t>(columna)];
    if (c.campoOrigen.isEmpty() || !tabla_) Lanza(3164);
    const CampoDef* campo = tabla_->campo(c.campoOrigen);
    if (!campo) Lanza(3164);
    if (campo->contador()) {
        if (modo_ == dbEditInProgress) Lanza(3164);
    }
    // Type and size are checked as the value is given; the required test waits for Update.
    CampoDef sinRequerido = *campo;
    sinRequerido.requerido = false;
    sinRequerido.permiteLongitudCero = true;
    buffer_[static_cast<size_t>(columna)] = ConvierteParaCampo(v, sinRequerido);
    cambiado_[static_cast<size_t>(columna)] = true;
    if (columna == contadorDado_) contadorDado_ = -1;
}

qint64 Recordset::siguienteContador() {
    // The counter's next value, handed out before the row is stored: a server's sequence gives each
    // workstation its own.
    if (db_->EnServidor()) return db_->postgres()->ejecuta(QStringLiteral("SELECT ") + SiguienteContadorPostgres(*tabla_)).entero(0, 0);
    const QByteArray sql =
        QStringLiteral("SELECT max(coalesce((SELECT seq FROM sqlite_sequence WHERE name = %1), 0), "
                       "coalesce((SELECT max(rowid) FROM %2), 0)) + 1")
            .arg(CitaTexto(tabla_->nombre), CitaNombre(tabla_->nombre)).toUtf8();
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db_->sqlite(), sql.constData(), -1, &st, nullptr);
    qint64 siguiente = 1;
    if (st && sqlite3_step(st) == SQLITE_ROW) siguiente = sqlite3_column_int64(st, 0);
    sqlite3_finalize(st);
    return siguiente;
}

void Recordset::AddNew() {
    if (cerrado_) Lanza(ErrOperacionNoValida);
    if (!actualizable_) Lanza(ErrSoloLectura);
    if (modo_ != dbEditNone) CancelUpdate();
    buffer_.assign(columnas_.size(), vb::Variant::Null());
    cambiado_.assign(columnas_.size(), false);
    contadorDado_ = -1;
    for (size_t i = 0; i < columnas_.size(); ++i) {
        const CampoDef* campo = tabla_->campo(columnas_[i].campoOrigen);
        if (!campo) continue;
        if (campo->contador()) {
            buffer_[i] = vb::Variant::Long(static_cast<qint32>(siguienteContador()));
            contadorDado_ = static_cast<int>(i);
            cambiado_[i] = true;
            continue;
        }
        const QString pred = PredeterminadoSqlite(campo->predeterminado, campo->tipo);
        if (pred.isEmpty()) continue;
        const QByteArray sql = (QStringLiteral("SELECT ") + pred).toUtf8();
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(motorLocal(), sql.constData(), -1, &st, nullptr);
        if (st && sqlite3_step(st) == SQLITE_ROW) buffer_[i] = LeeColumna(st, 0, campo->tipo);
        sqlite3_finalize(st);
        cambiado_[i] = true;
    }
    modo_ = dbEditAdd;
}

void Recordset::Edit() {
    if (!actualizable_) Lanza(ErrSoloLectura);
    exigeActual();
    alDia();
    buffer_.clear();
    for (size_t i = 0; i < tipos_.size(); ++i) buffer_.push_back(valorEn(pos_, static_cast<int>(i)));
    cambiado_.assign(columnas_.size(), false);
    modo_ = dbEditInProgress;
}

void Recordset::CancelUpdate() {
    if (modo_ == dbEditNone) Lanza(ErrSinAddNewNiEdit);
    modo_ = dbEditNone;
    buffer_.clear();
    cambiado_.clear();
}

void Recordset::escribeEnArchivo(const QStringList& columnas, const std::vector<vb::Variant>& valores) {
    QString sql;
    if (modo_ == dbEditAdd) {
        QStringList marcas;
        for (int i = 1; i <= columnas.size(); ++i) marcas << QStringLiteral("?%1").arg(i);
        sql = columnas.isEmpty() ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(CitaNombre(tabla_->nombre))
                                 : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                       .arg(CitaNombre(tabla_->nombre), columnas.join(QStringLiteral(", ")),
                                            marcas.join(QStringLiteral(", ")));
    } else {
        QStringList sets;
        for (int i = 0; i < columnas.size(); ++i) sets << QStringLiteral("%1 = ?%2").arg(columnas[i]).arg(i + 1);
        sql = QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?%3")
                  .arg(CitaNombre(tabla_->nombre), sets.join(QStringLiteral(", ")))
                  .arg(columnas.size() + 1);
    }
    sqlite3_stmt* st = nullptr;
    const QByteArray u = sql.toUtf8();
    int rc = sqlite3_prepare_v2(db_->sqlite(), u.constData(), static_cast<int>(u.size()), &st, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(st);
        db_->lanzaSqlite(rc);
    }
    for (size_t i = 0; i < valores.size(); ++i) Enlaza(st, static_cast<int>(i + 1), valores[i]);
    if (modo_ == dbEditInProgress) sqlite3_bind_int64(st, static_cast<int>(valores.size() + 1), filas_.rowid(pos_));
    rc = sqlite3_step(st);
    // Another workstation stored a row with the counter value handed out here since AddNew: the row takes
    // the next free one, as a counter would have given it had both come in turn.
    for (int intento = 0; intento < 20 && rc == SQLITE_CONSTRAINT_PRIMARYKEY && modo_ == dbEditAdd && contadorDado_ >= 0; ++intento) {
        sqlite3_reset(st);
        buffer_[static_cast<size_t>(contadorDado_)] = vb::Variant::Long(static_cast<qint32>(siguienteContador()));
        int n = 0;
        for (size_t i = 0; i < columnas_.size() && static_cast<int>(i) <= contadorDado_; ++i)
            if (tabla_->campo(columnas_[i].campoOrigen)) ++n;
        Enlaza(st, n, buffer_[static_cast<size_t>(contadorDado_)]);
        rc = sqlite3_step(st);
    }
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE) db_->lanzaSqlite(rc);
}

void Recordset::Update() {
    if (modo_ == dbEditNone) Lanza(ErrSinAddNewNiEdit);
    db_->terminaLecturas();     // the scans end before the table changes under them
    QStringList columnas;
    std::vector<vb::Variant> valores;
    for (size_t i = 0; i < columnas_.size(); ++i) {
        const CampoDef* campo = tabla_->campo(columnas_[i].campoOrigen);
        if (!campo) continue;
        if (modo_ == dbEditAdd || cambiado_[i]) {
            if (modo_ == dbEditInProgress && !cambiado_[i]) continue;
            valores.push_back(ConvierteParaCampo(buffer_[i], *campo));
            columnas << CitaNombre(campo->nombre);
        }
    }
    // Required fields of the table that the query doesn't show.
    if (modo_ == dbEditAdd) {
        for (const auto& c : tabla_->campos) {
            bool mostrado = false;
            for (const auto& col : columnas_)
                if (col.campoOrigen.compare(c.nombre, Qt::CaseInsensitive) == 0) mostrado = true;
            if (!mostrado && c.requerido && !c.contador() && PredeterminadoSqlite(c.predeterminado, c.tipo).isEmpty())
                Lanza(ErrRequerido, c.nombre);
        }
    }
    if (modo_ == dbEditInProgress && columnas.isEmpty()) {
        modo_ = dbEditNone;
        return;
    }
    qint64 idServidor = -1;
    if (db_->EnServidor()) idServidor = escribeEnServidor(columnas, valores);
    else escribeEnArchivo(columnas, valores);

    // What was written, as the table holds it.
    std::vector<vb::Variant> fila(columnas_.size());
    for (size_t i = 0; i < columnas_.size(); ++i) {
        const CampoDef* campo = tabla_->campo(columnas_[i].campoOrigen);
        fila[i] = campo ? ConvierteParaCampo(buffer_[i], CampoDef{*campo}) : buffer_[i];
    }
    // Beside a server the row's id travels with its values.
    if (idServidor >= 0) fila.push_back(vb::Variant(static_cast<double>(idServidor)));
    if (modo_ == dbEditAdd) {
        traeTodo();
        const bool vacio = filas_.empty();
        if (porClave_) filas_.agregaClave(sqlite3_last_insert_rowid(db_->sqlite()));
        else filas_.agrega(fila.data());
        if (vacio) situa(0);
    } else {
        if (porClave_) {
            if (filaEnSentencia_ == pos_) filaEnSentencia_ = -1;
            olvidaFila();
        } else {
            filas_.reemplaza(pos_, fila.data());
        }
    }
    modo_ = dbEditNone;
    buffer_.clear();
    cambiado_.clear();
}

void Recordset::borraEnArchivo() {
    const QByteArray u = QStringLiteral("DELETE FROM %1 WHERE rowid = ?1").arg(CitaNombre(tabla_->nombre)).toUtf8();
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(db_->sqlite(), u.constData(), static_cast<int>(u.size()), &st, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(st);
        db_->lanzaSqlite(rc);
    }
    sqlite3_bind_int64(st, 1, filas_.rowid(pos_));
    rc = sqlite3_step(st);
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE) db_->lanzaSqlite(rc);
}

void Recordset::Delete() {
    if (!actualizable_) Lanza(ErrSoloLectura);
    if (modo_ != dbEditNone) CancelUpdate();
    exigeActual();
    db_->terminaLecturas();
    if (db_->EnServidor()) borraEnServidor();
    else borraEnArchivo();
    filas_.borra(pos_);
    olvidaFila();
    if (filaEnSentencia_ == pos_) filaEnSentencia_ = -1;
    else if (filaEnSentencia_ > pos_) --filaEnSentencia_;
    actualBorrado_ = true;
}

void Recordset::Requery() {
    if (modo_ != dbEditNone) CancelUpdate();
    abre();
}

}  // namespace dao
