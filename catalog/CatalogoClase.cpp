#include "catalog/CatalogoClase.h"

#include "catalog/CatalogoSimple.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"

CatalogoClase::CatalogoClase() = default;
CatalogoClase::~CatalogoClase() = default;

void CatalogoClase::CargarValores() {
    // Walks the rows of the button captions and keeps nothing: kept for the callers that still call it.
    for (int i = 0; i <= UltimoIndice; ++i) (void)leyendas_[static_cast<size_t>(i)];
}

void CatalogoClase::RevisaIndice(int Index) {
    if (Index < 0 || Index > UltimoIndice) throw vb::Error(9, QStringLiteral("Subíndice fuera del intervalo"));
}

QString CatalogoClase::Botones_Leyenda(int Index) const {
    RevisaIndice(Index);
    return leyendas_[static_cast<size_t>(Index)];
}

QString CatalogoClase::Combo_CampoValor(int Index) const {
    RevisaIndice(Index);
    return combos_[static_cast<size_t>(Index)].CampoValor;
}

QString CatalogoClase::Combo_SQLdatos(int Index) const {
    RevisaIndice(Index);
    return combos_[static_cast<size_t>(Index)].SQLdatos;
}

QString CatalogoClase::Combo_Text(int Index) const {
    RevisaIndice(Index);
    return combos_[static_cast<size_t>(Index)].Text;
}

void CatalogoClase::ActivarBotonCombo(int Index, const QString& Titulo, const QString& CampoRef,
                                      const QString& SQLdatos_Valor_Mensaje) {
    RevisaIndice(Index);
    leyendas_[static_cast<size_t>(Index)] = Titulo;
    combos_[static_cast<size_t>(Index)].CampoValor = CampoRef;
    combos_[static_cast<size_t>(Index)].SQLdatos = SQLdatos_Valor_Mensaje;
}

void CatalogoClase::EventoClick(int Index) {
    const QString titulo = Botones_Leyenda(Index);
    if (ClickBoton) ClickBoton(Forma(), titulo, Index);
}

CatalogoSimple& CatalogoClase::Forma() {
    if (!forma_) forma_ = std::make_unique<CatalogoSimple>();
    return *forma_;
}

void CatalogoClase::ListasDeCampos(const QString& ListaCampos, QString& Lista1, QString& Lista2) {
    Lista1.clear();
    Lista2.clear();
    QString resto = ListaCampos;
    while (!resto.isEmpty()) {
        QString item;
        const int coma = vb::InStr(resto, QStringLiteral(","));
        if (coma > 0) {
            item = vb::Left(resto, coma - 1);
            resto = vb::Mid(resto, coma + 1);
        } else {
            item = resto;
            resto.clear();
        }
        QString columna = item, rotulo = item;
        const int igual = vb::InStr(item, QStringLiteral("="));
        if (igual > 0) {
            columna = vb::Left(item, igual - 1);
            rotulo = vb::Mid(item, igual + 1);
        }
        columna = vb::Trim(columna);
        rotulo = vb::Trim(rotulo);
        if (!Lista1.isEmpty()) {
            Lista1 += QStringLiteral(",");
            Lista2 += QStringLiteral(",");
        }
        if (vb::UCase(columna) != vb::UCase(rotulo))
            Lista1 += QStringLiteral("[") + columna + QStringLiteral("] as [") + rotulo + QStringLiteral("]");
        else
            Lista1 += QStringLiteral("[") + columna + QStringLiteral("]");
        Lista2 += QStringLiteral("[") + columna + QStringLiteral("]");
    }
    if (Lista1.isEmpty()) Lista1 = QStringLiteral("*");
    if (Lista2.isEmpty()) Lista2 = QStringLiteral("*");
}

void CatalogoClase::CATALOGO(const QString& Tabla, const QString& CampoClave, const QString& CampoClaveVista,
                             const QString& ListaCampos, const QString& Titulo, const QString& SQLvista,
                             const vb::Variant& Estilo) {
    QString lista1, lista2;
    ListasDeCampos(ListaCampos, lista1, lista2);
    const QString SQLcaptura = QStringLiteral("select top 1 ") + lista1 + QStringLiteral(" from [") + Tabla + QStringLiteral("]");
    const QString SQLtabla = QStringLiteral("select ") + lista2 + QStringLiteral(" from [") + Tabla + QStringLiteral("]");

    CatalogoSimple& forma = Forma();
    forma.setWindowTitle(Titulo);
    int estilo = 0;
    if (!Estilo.isNull() && !Estilo.isEmpty()) {
        try {
            estilo = vb::Variant(Estilo).toInteger();
        } catch (const vb::Error&) {
            estilo = 0;
        }
    }
    forma.AplicaEstilo(estilo);
    if (!forma.InicializaBase(SQLcaptura, SQLvista, SQLtabla, CampoClave, CampoClaveVista, *this)) return;
    ui::Sistema().MuestraModal(forma);
}
