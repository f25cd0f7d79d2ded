#include "catalog/Registro.h"

#include "catalog/CatalogoClase.h"
#include "core/FormPrincipal.h"

#include <vector>

namespace catalogo {

namespace {

struct DefinicionMenu {
    const char* comando;
    QString tabla, clave, listaCampos, titulo, sqlVista;
};

const std::vector<DefinicionMenu>& Definiciones() {
    static const std::vector<DefinicionMenu> definiciones = {
        {"Bibliotecas", QStringLiteral("Bibliotecas"), QStringLiteral("Nombre"),
         QStringLiteral("No=No de Biblioteca,Nombre,Nombre corto,Director,Telefono=Teléfono,Email=E-mail"),
         QStringLiteral("Catálogo de Bibliotecas"), QStringLiteral("SELECT Nombre,[NO] as Núm,Director,Telefono FROM Bibliotecas")},
        {"Escuelas", QStringLiteral("Escuelas"), QStringLiteral("Nombre"),
         QStringLiteral("No=No de escuela,Nombre,Nombre corto,Responsable,E-mail,Nobiblioteca=Biblioteca"),
         QStringLiteral("Catálogo de Escuelas"),
         QStringLiteral("SELECT Nombre,[NO] as Núm,Responsable,NOBIBLIOTECA as NumBib from Escuelas")},
        {"Proveedores", QStringLiteral("Proveedores"), QStringLiteral("Empresa"),
         QStringLiteral("No=No de Proveedor,Empresa,Representante,Domicilio,Ciudad/Estado,Télefono/Fax=Teléfono/Fax,E-mail,"
                        "Número de cuenta=No de cuenta bancaria"),
         QStringLiteral("Catálogo de Proveedores"),
         QStringLiteral("SELECT Empresa as Proveedor, [No] as Núm, Representante, Domicilio FROM Proveedores")},
        {"Editoriales", QStringLiteral("Editoriales"), QStringLiteral("Nombre"), QStringLiteral("No=No de editorial,Nombre,Representante"),
         QStringLiteral("Catálogo de Editoriales"), QStringLiteral("SELECT Nombre,[No] as Número,Representante from Editoriales")},
        {"Instituciones", QStringLiteral("Instituciones"), QStringLiteral("Nombre"),
         QStringLiteral("No=No de Institución,Nombre,Representante,Direccion=Dirección,Ciudad,Telefono/Fax=Teléfono y/o Fax,E-mail"),
         QStringLiteral("Catálogo de Instituciones"),
         QStringLiteral("select Nombre,[No] as Número,Representante,Direccion,Ciudad,[Telefono/Fax],[E-mail] from Instituciones")},
    };
    return definiciones;
}

}  // namespace

void CatEventos_ClickBoton(CatalogoSimple& CAT, const QString& Titulo, int Index) {
    Q_UNUSED(CAT);
    Q_UNUSED(Index);
    if (Titulo != QStringLiteral("Bibliotecas")) return;
    CatalogoClase bibliotecas;
    bibliotecas.CATALOGO(QStringLiteral("Bibliotecas"), QStringLiteral("No"), QStringLiteral("No"), QString(),
                         QStringLiteral("Catálogo de Bibliotecas"), QStringLiteral("select * from Bibliotecas"), 2);
}

void AbreCatalogoMenu(const QString& comando) {
    for (const DefinicionMenu& d : Definiciones()) {
        if (comando != QLatin1String(d.comando)) continue;
        CatalogoClase CatEventos;
        CatEventos.ClickBoton = CatEventos_ClickBoton;
        if (comando == QStringLiteral("Escuelas"))
            CatEventos.ActivarBotonCombo(5, QStringLiteral("Bibliotecas"), QStringLiteral("NoBiblioteca"),
                                         QStringLiteral("select [No] as Valor, Nombre as Mensaje from Bibliotecas"));
        CatEventos.CATALOGO(d.tabla, d.clave, d.clave, d.listaCampos, d.titulo, d.sqlVista, 1);
        return;
    }
}

void RegistraComandos() {
    for (const DefinicionMenu& d : Definiciones()) {
        const QString comando = QLatin1String(d.comando);
        FormPrincipal::RegistraPantalla(comando, [comando](FormPrincipal&) { AbreCatalogoMenu(comando); });
    }
}

}  // namespace catalogo
