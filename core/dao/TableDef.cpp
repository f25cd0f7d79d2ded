#include "core/dao/Dao.h"

#include "core/jet/ErroresMotor.h"

namespace dao {

using namespace jet;

vb::Variant Field::definicionSinValor() { Lanza(ErrOperacionNoValida); }

void Field::setValue(const vb::Variant& v) {
    if (!rs_) Lanza(ErrOperacionNoValida);
    rs_->asigna(indice_, v);
}

void Field::setAttributes(int a) {
    if (tabla_ && tabla_->appended()) Lanza(ErrOperacionNoValida);
    def_.atributos = a;
}

void Field::setRequired(bool r) {
    def_.requerido = r;
    if (tabla_ && tabla_->appended()) tabla_->db_->catalogo().cambiaRequerido(tabla_->nombre_, def_.nombre, r);
}

void Field::setDefaultValue(const QString& v) {
    def_.predeterminado = v;
    if (tabla_ && tabla_->appended()) tabla_->db_->catalogo().cambiaPredeterminado(tabla_->nombre_, def_.nombre, v);
}

void FieldsCollection::fueraDeRango() { Lanza(ErrElementoNoEncontrado); }

Field* FieldsCollection::busca(const QString& nombre) {
    for (auto& f : campos_)
        if (f->Name().compare(nombre, Qt::CaseInsensitive) == 0) return f.get();
    return nullptr;
}

Field& FieldsCollection::operator[](const QString& nombre) {
    Field* f = busca(nombre);
    if (!f) Lanza(ErrElementoNoEncontrado);
    return *f;
}

void FieldsCollection::Append(const Field& f) {
    if (!tabla_) Lanza(ErrOperacionNoValida);
    if (f.Name().trimmed().isEmpty()) Lanza(ErrNombreNoValido, f.Name());
    if (busca(f.Name())) Lanza(ErrCampoYaExiste, f.Name(), tabla_->nombre_);
    auto nuevo = std::make_unique<Field>(f);
    nuevo->tabla_ = tabla_;
    nuevo->def_.ordinal = Count();
    if (tabla_->appended()) tabla_->agregaCampo(*nuevo);
    campos_.push_back(std::move(nuevo));
}

Field TableDef::CreateField(const QString& nombre, int tipo, int tamano) const {
    CampoDef c;
    c.nombre = nombre;
    c.tipo = static_cast<TipoCampo>(tipo);
    if (c.tipo == TipoCampo::Text) c.tamano = tamano > 0 ? tamano : 50;
    else c.tamano = TamanoFijo(c.tipo);
    c.atributos = EsTexto(c.tipo) ? AtrVariable : AtrFijo;
    c.permiteLongitudCero = true;
    return Field(c);
}

void TableDef::agregaCampo(Field& f) {
    db_->catalogo().agregaCampo(nombre_, f.def_, esquema_);
}

void TableDef::AppendIndex(const Index& i) {
    if (appended()) {
        jet::IndiceDef d = i.definicion();
        db_->catalogo().creaIndice(nombre_, d);
    }
    indices_.push_back(i);
}

jet::TablaDef TableDef::definicion() const {
    jet::TablaDef t;
    t.nombre = nombre_;
    for (const auto& f : campos_.campos_) t.campos.push_back(f->def_);
    for (const auto& i : indices_) {
        jet::IndiceDef d = i.definicion();
        for (auto& n : d.campos)
            if (const CampoDef* c = t.campo(n)) n = c->nombre;
        t.indices.push_back(d);
    }
    // The fields of a primary index must hold a value.
    for (const auto& i : t.indices)
        if (i.primario)
            for (auto& c : t.campos)
                if (i.campos.contains(c.nombre, Qt::CaseInsensitive)) c.requerido = true;
    return t;
}

void TableDefsCollection::carga() {
    tablas_.clear();
    for (const TablaDef* t : db_->catalogo().tablas()) {
        auto td = std::make_unique<TableDef>();
        td->nombre_ = t->nombre;
        td->db_ = db_;
        td->campos_.tabla_ = td.get();
        for (const auto& c : t->campos) {
            auto f = std::make_unique<Field>(c);
            f->tabla_ = td.get();
            td->campos_.campos_.push_back(std::move(f));
        }
        for (const auto& i : t->indices) td->indices_.push_back(Index(i));
        tablas_.push_back(std::move(td));
    }
    cargada_ = true;
}

int TableDefsCollection::Count() {
    if (!cargada_) carga();
    return static_cast<int>(tablas_.size());
}

TableDef& TableDefsCollection::operator[](int i) {
    if (!cargada_) carga();
    if (i < 0 || i >= static_cast<int>(tablas_.size())) Lanza(ErrElementoNoEncontrado);
    return *tablas_[static_cast<size_t>(i)];
}

TableDef* TableDefsCollection::busca(const QString& nombre) {
    if (!cargada_) carga();
    for (auto& t : tablas_)
        if (t->Name().compare(nombre, Qt::CaseInsensitive) == 0) return t.get();
    return nullptr;
}

TableDef& TableDefsCollection::operator[](const QString& nombre) {
    TableDef* t = busca(nombre);
    if (!t) Lanza(ErrElementoNoEncontrado);
    return *t;
}

void TableDefsCollection::Refresh() {
    db_->catalogo().invalida();
    carga();
}

void TableDefsCollection::Append(std::unique_ptr<TableDef> t) {
    if (!t || t->nombre_.trimmed().isEmpty()) Lanza(ErrNombreNoValido, t ? t->nombre_ : QString());
    if (t->appended()) Lanza(ErrTablaYaExiste, t->nombre_);
    if (t->campos_.Count() == 0) Lanza(3264);
    db_->catalogo().creaTabla(t->definicion());
    cargada_ = false;
    carga();
}

void TableDefsCollection::Delete(const QString& nombre) {
    db_->catalogo().borraTabla(nombre);
    cargada_ = false;
}

}  // namespace dao
