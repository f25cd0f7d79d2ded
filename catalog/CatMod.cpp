#include "catalog/CatMod.h"

#include "core/controles/ComboBox.h"

#include "catalog/CatalogoClase.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace CatMod {

void CatalogoParaCombo(QComboBox& Combo, const QString& Catalogo, const QString& CampoTexto, const QString& SQLcombo,
                       const QString& Inicial) {
    const QString textoAnterior = Combo.currentText();
    {
        CatalogoClase cat;
        if (Catalogo == QStringLiteral("bibliotecas")) {
            cat.CATALOGO(QStringLiteral("Bibliotecas"), QStringLiteral("No"), QStringLiteral("No"),
                         QStringLiteral("No=No de Biblioteca,Nombre,Nombre corto,Director,Telefono=Teléfono,Email=E-mail"),
                         QStringLiteral("Catálogo de Bibliotecas"),
                         QStringLiteral("select [NO],NOMBRE,DIRECTOR,TELEFONO from Bibliotecas"), 1);
        } else if (Catalogo == QStringLiteral("proveedores")) {
            cat.CATALOGO(QStringLiteral("Proveedores"), QStringLiteral("No"), QStringLiteral("No"), QString(),
                         QStringLiteral("Catálogo de Proveedores"), QStringLiteral("select * from Proveedores"), 1);
        } else if (Catalogo == QStringLiteral("editoriales")) {
            cat.CATALOGO(QStringLiteral("Editoriales"), QStringLiteral("No"), QStringLiteral("No"),
                         QStringLiteral("No=No de editorial,Nombre,Representante"), QStringLiteral("Catálogo de Editoriales"),
                         QStringLiteral("select [No],Nombre,Representante from Editoriales"), 1);
        } else if (Catalogo == QStringLiteral("instituciones")) {
            cat.CATALOGO(QStringLiteral("Instituciones"), QStringLiteral("No"), QStringLiteral("No"),
                         QStringLiteral("No=No de control,Nombre,Representante,Direccion=Dirección,Ciudad,"
                                        "Telefono/Fax=Teléfono y/o Fax,E-mail"),
                         QStringLiteral("Catálogo de Instituciones"),
                         QStringLiteral("select [No],Nombre,Representante,Direccion,Ciudad,[Telefono/Fax],[E-mail] from "
                                        "Instituciones"),
                         1);
        } else if (Catalogo == QStringLiteral("escuelas")) {
            cat.ActivarBotonCombo(5, QStringLiteral("Bibliotecas"), QStringLiteral("NoBiblioteca"),
                                  QStringLiteral("select [No] as Valor, Nombre as Mensaje from Bibliotecas"));
            cat.CATALOGO(QStringLiteral("Escuelas"), QStringLiteral("No"), QStringLiteral("No"),
                         QStringLiteral("No=No de escuela,Nombre,Nombre corto,Responsable,E-mail,Nobiblioteca=Biblioteca"),
                         QStringLiteral("Catálogo de Escuelas"),
                         QStringLiteral("select [NO],NOMBRE,RESPONSABLE,NOBIBLIOTECA from Escuelas"), 1);
        }
    }

    {
        // Filling chooses nothing: only the entry chosen again below raises the combo's Click.
        const QSignalBlocker bloqueo(&Combo);
        Combo.clear();
        if (!Inicial.isEmpty()) Combo.addItem(Inicial);
        auto rs = globales::Base().OpenRecordset(SQLcombo);
        while (!rs->Eof()) {
            Combo.addItem(rs->Fields(CampoTexto).Value().toString());
            rs->MoveNext();
        }
        rs->Close();
        Combo.setCurrentIndex(-1);
    }
    if (!textoAnterior.isEmpty()) {
        const int i = Combo.findText(textoAnterior, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (i >= 0) Combo.setCurrentIndex(i);
    }
}

void CatalogoParaComboEligiendo(controles::ComboBox& Combo, const QString& Catalogo, const QString& SQLcombo) {
    CatalogoParaCombo(Combo, Catalogo, QStringLiteral("Resultado"), SQLcombo, QString());
    if (Combo.ListCount() > 0 && Combo.ListIndex() < 0) Combo.setListIndex(0);
}

}  // namespace CatMod
