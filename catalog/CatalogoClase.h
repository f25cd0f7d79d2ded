#pragma once
// A catalog as its opener describes it: the table, its key, the capture fields with their captions, the
// title, the list's SQL and the window style, and for a foreign key the capture row that becomes a combo
// box with a button. Each instance owns its own CatalogoSimple form, made on first use.
#include "core/vb/Variant.h"

#include <QString>
#include <array>
#include <functional>
#include <memory>

class CatalogoSimple;

class CatalogoClase {
public:
    CatalogoClase();
    ~CatalogoClase();
    CatalogoClase(const CatalogoClase&) = delete;
    CatalogoClase& operator=(const CatalogoClase&) = delete;

    // The class's one event, raised by EventoClick: the form, the button's caption and the row. The opener
    // (its CatEventos) sets it before CATALOGO; nobody listening means the click does nothing.
    std::function<void(CatalogoSimple& CAT, const QString& Titulo, int Index)> ClickBoton;

    void CargarValores();
    // Builds the field lists, sets up the form, loads the table and shows the form modally; returns when
    // it closes. Estilo 1 or 2.
    void CATALOGO(const QString& Tabla, const QString& CampoClave, const QString& CampoClaveVista,
                  const QString& ListaCampos, const QString& Titulo, const QString& SQLvista, const vb::Variant& Estilo);
    void EventoClick(int Index);
    // Makes capture row Index a combo of SQLdatos_Valor_Mensaje (columns Valor and Mensaje) with a button
    // captioned Titulo. Before CATALOGO.
    void ActivarBotonCombo(int Index, const QString& Titulo, const QString& CampoRef, const QString& SQLdatos_Valor_Mensaje);

    // Read accessors; an index outside 0 to 100 is error 9.
    QString Botones_Leyenda(int Index) const;
    QString Combo_CampoValor(int Index) const;
    QString Combo_SQLdatos(int Index) const;
    QString Combo_Text(int Index) const;

    // The form of this catalog, created on first use.
    CatalogoSimple& Forma();

    // ListaCampos read as CATALOGO reads it: the capture list (with aliases for captions) and the plain
    // list of true column names; "*" for both when empty.
    static void ListasDeCampos(const QString& ListaCampos, QString& Lista1, QString& Lista2);

private:
    static constexpr int UltimoIndice = 100;
    static void RevisaIndice(int Index);
    struct DatosCombo {
        QString CampoValor, SQLdatos, Text;
    };
    std::array<QString, UltimoIndice + 1> leyendas_;
    std::array<DatosCombo, UltimoIndice + 1> combos_;
    std::unique_ptr<CatalogoSimple> forma_;
};
