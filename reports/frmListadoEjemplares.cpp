#include "reports/frmListadoEjemplares.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/ui/Aperturas.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "reports/Reportes.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("frmListadoEjemplares");
const QString numerosAN = QStringLiteral("[Adquisiciones Numadqui] AS AN");
// The column of the list that tells a requested copy ("S") from a donated one ("D").
constexpr int ColumnaLado = 9;

// The numeric value of the first three characters of a library's item ("001 - Central"); 0 for a shorter
// text, such as none chosen.
int NumeroBiblioteca(const QString& item) {
    if (item.size() < 4) return 0;
    return static_cast<int>(vb::Val(vb::Left(item, 3)));
}

// While a copy's title is open from the listing its screen knows it; cleared however that screen ends.
struct DesdeElListado {
    DesdeElListado() { globales::DesdeListadoEjemplares = true; }
    ~DesdeElListado() { globales::DesdeListadoEjemplares = false; }
    DesdeElListado(const DesdeElListado&) = delete;
    DesdeElListado& operator=(const DesdeElListado&) = delete;
};

// The name the report gives to the state of a copy's title, or to the kind of its donation.
QString NombreEstado(const controles::ListItem& fila, const QString& estado) {
    if (vb::UCase(fila.SubItems(ColumnaLado)) == QStringLiteral("D")) {
        if (estado == QStringLiteral("D")) return QStringLiteral("Donación");
        if (estado == QStringLiteral("I")) return QStringLiteral("Intercambio");
        return QString();
    }
    if (estado == QStringLiteral("A")) return QStringLiteral("Adquirido");
    if (estado == QStringLiteral("I")) return QStringLiteral("No adquirido");
    if (estado == QStringLiteral("P")) return QStringLiteral("Pedido");
    if (estado == QStringLiteral("S")) return QStringLiteral("Solicitado");
    return QString();
}

}  // namespace

frmListadoEjemplares::frmListadoEjemplares(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmListadoEjemplares"));
    setWindowTitle(QStringLiteral("Listado de ejemplares adquiridos"));

    txtBuscar = new QLineEdit(this);
    cmdBuscar = new QPushButton(QStringLiteral("&Buscar"), this);
    cmdBuscar->setDefault(true);
    chkAvanzadas = new QCheckBox(QStringLiteral("Usar opciones avanzadas de búsqueda"), this);

    picInfo = new QWidget(this);
    auto* ayuda1 = new QLabel(QStringLiteral("Puede localizar ejemplares escribiendo su número de adquisición completo o "
                                             "usando parte del número.   p. ejem:"),
                              picInfo);
    auto* ayuda2 = new QLabel(
        QStringLiteral("... Si escribe '000314' ó '0003' localizará de igual forma el ejemplar '000314'"), picInfo);
    ayuda1->setWordWrap(true);
    ayuda2->setWordWrap(true);
    auto* info = new QVBoxLayout(picInfo);
    info->setContentsMargins(0, 0, 0, 0);
    info->addWidget(ayuda1);
    info->addWidget(ayuda2);

    frameNumSol = new QGroupBox(this);
    Option1 = new QRadioButton(QStringLiteral("Números de adquisición"), frameNumSol);
    Option2 = new QRadioButton(QStringLiteral("Solicitud o rangos de solicitudes / donaciones"), frameNumSol);
    ejemRango = new QLabel(QStringLiteral("p. ejem.  1-3  ó  12-15"), frameNumSol);
    Option1->setChecked(true);
    ejemRango->setVisible(false);
    auto* numSol = new QVBoxLayout(frameNumSol);
    numSol->addWidget(Option1);
    numSol->addWidget(Option2);
    numSol->addWidget(ejemRango);
    frameSolDon = new QGroupBox(this);
    OptAmbas = new QRadioButton(QStringLiteral("Solicitudes y donaciones"), frameSolDon);
    OptSol = new QRadioButton(QStringLiteral("Únicamente solicitudes"), frameSolDon);
    OptDon = new QRadioButton(QStringLiteral("Únicamente donaciones"), frameSolDon);
    OptAmbas->setChecked(true);
    auto* solDon = new QVBoxLayout(frameSolDon);
    solDon->addWidget(OptAmbas);
    solDon->addWidget(OptSol);
    solDon->addWidget(OptDon);
    Check1 = new QCheckBox(QStringLiteral("Solo de la biblioteca"), this);
    cboBiblio = new controles::ComboBox(this);
    cboBiblio->setMinimumContentsLength(24);
    cboBiblio->setEnabled(false);

    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));
    cmdDetalleNA = new QPushButton(QStringLiteral("&Detalles ejemplares"), this);
    cmdVerFicha = new QPushButton(QStringLiteral("&Mostrar solicitud"), this);
    cmdImprimir = new QPushButton(QStringLiteral("Generar &reporte"), this);
    cmdGrabar = new QPushButton(QStringLiteral("&Guardar"), this);
    cmdRegresar = new QPushButton(QStringLiteral("&Cancelar"), this);
    picContenedor = reportes::CreaVistaPrevia(this, WebBrowser1);

    const std::pair<QWidget*, const char*> nombres[] = {
        {txtBuscar, "txtBuscar"},       {cmdBuscar, "cmdBuscar"},       {chkAvanzadas, "chkAvanzadas"},
        {picInfo, "picInfo"},           {frameNumSol, "frameNumSol"},   {Option1, "Option1"},
        {Option2, "Option2"},           {ejemRango, "ejemRango"},       {frameSolDon, "frameSolDon"},
        {OptAmbas, "OptAmbas"},         {OptSol, "OptSol"},             {OptDon, "OptDon"},
        {Check1, "Check1"},             {cboBiblio, "cboBiblio"},       {cmdDetalleNA, "cmdDetalleNA"},
        {cmdVerFicha, "cmdVerFicha"},   {cmdImprimir, "cmdImprimir"},   {cmdGrabar, "cmdGrabar"},
        {cmdRegresar, "cmdRegresar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));

    // The search on top: the expression, and below it either the help or the options.
    auto* expresion = new QHBoxLayout;
    expresion->addWidget(new QLabel(QStringLiteral("Expresión "), this));
    expresion->addWidget(txtBuscar, 1);
    expresion->addWidget(cmdBuscar);
    auto* biblioteca = new QHBoxLayout;
    biblioteca->addWidget(Check1);
    biblioteca->addWidget(cboBiblio, 1);
    auto* opciones = new QGridLayout;
    opciones->addWidget(frameNumSol, 0, 0);
    opciones->addWidget(frameSolDon, 0, 1);
    opciones->addLayout(biblioteca, 1, 0, 1, 2);
    opciones->setColumnStretch(0, 1);
    opciones->setColumnStretch(1, 1);
    auto* busqueda = new QVBoxLayout;
    busqueda->addLayout(expresion);
    busqueda->addWidget(chkAvanzadas);
    busqueda->addWidget(picInfo);
    busqueda->addLayout(opciones);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {cmdDetalleNA, cmdVerFicha, cmdImprimir, cmdGrabar}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(cmdRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(busqueda);
    todo->addWidget(Frame2, 1);
    todo->addWidget(picContenedor, 1);
    todo->addLayout(botones);
    chkAvanzadas_Click();
    resize(1080, 720);

    Reporte = std::make_unique<reportes::ReporteDeLista>(this, cmdImprimir, cmdGrabar, picContenedor, WebBrowser1.get(),
                                                         DocumentoHtml, [this] { GeneraReporteHTML(); });

    ui::Conecta(txtBuscar, &QLineEdit::textChanged, this, origen, &frmListadoEjemplares::txtBuscar_Change);
    ui::Conecta(chkAvanzadas, &QCheckBox::clicked, this, origen, &frmListadoEjemplares::chkAvanzadas_Click);
    ui::Conecta(Option1, &QRadioButton::clicked, this, origen, &frmListadoEjemplares::Option1_Click);
    ui::Conecta(Option2, &QRadioButton::clicked, this, origen, &frmListadoEjemplares::Option2_Click);
    ui::Conecta(Check1, &QCheckBox::clicked, this, origen, &frmListadoEjemplares::Check1_Click);
    ui::Conecta(cboBiblio, &controles::ComboBox::Click, this, origen, &frmListadoEjemplares::cboBiblio_Click);
    ui::Conecta(cmdBuscar, &QPushButton::clicked, this, origen, &frmListadoEjemplares::cmdBuscar_Click);
    ui::Conecta(cmdDetalleNA, &QPushButton::clicked, this, origen, &frmListadoEjemplares::cmdDetalleNA_Click);
    ui::Conecta(cmdVerFicha, &QPushButton::clicked, this, origen, &frmListadoEjemplares::cmdVerFicha_Click);
    ui::Conecta(cmdImprimir, &QPushButton::clicked, this, origen, &frmListadoEjemplares::cmdImprimir_Click);
    ui::Conecta(cmdGrabar, &QPushButton::clicked, this, origen, &frmListadoEjemplares::cmdGrabar_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &frmListadoEjemplares::cmdRegresar_Click);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &frmListadoEjemplares::ListView1_ColumnClick);
}

frmListadoEjemplares::~frmListadoEjemplares() = default;

void frmListadoEjemplares::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    auto& columnas = ListView1->ColumnHeaders();
    columnas.Add(QStringLiteral("Clave Libro"), 0);
    columnas.Add(QStringLiteral("NúmAdq."), 1300);
    columnas.Add(QStringLiteral("Solicitud"), 900);
    columnas.Add(QStringLiteral("Titulo"), 3600);
    columnas.Add(QStringLiteral("Autor"), 2400);
    columnas.Add(QStringLiteral("Recibidos"), 900);
    columnas.Add(QStringLiteral("Costo"), 1200);
    columnas.Add(QStringLiteral("Fecha"), 1100);
    columnas.Add(QStringLiteral("Estado"), 700);
    columnas.Add(QStringLiteral("S/D"), 500);

    reportes::LlenaListaNumerada(*cboBiblio, QStringLiteral(" -- Todas las bibliotecas --"), QStringLiteral("[No], Nombre"),
                                 QStringLiteral("Bibliotecas"), QStringLiteral("[No]"));

    for (QPushButton* b : {cmdBuscar, cmdDetalleNA, cmdVerFicha, cmdImprimir, cmdGrabar}) b->setEnabled(false);
}

void frmListadoEjemplares::txtBuscar_Change() { cmdBuscar->setEnabled(!txtBuscar->text().isEmpty()); }

void frmListadoEjemplares::chkAvanzadas_Click() {
    const bool avanzadas = chkAvanzadas->isChecked();
    picInfo->setVisible(!avanzadas);
    for (QWidget* w : std::initializer_list<QWidget*>{frameNumSol, frameSolDon, Check1, cboBiblio}) w->setVisible(avanzadas);
}

void frmListadoEjemplares::Option1_Click() { ejemRango->setVisible(false); }

void frmListadoEjemplares::Option2_Click() { ejemRango->setVisible(true); }

void frmListadoEjemplares::Check1_Click() {
    if (Check1->isChecked()) {
        cboBiblio->setEnabled(true);
        cboBiblio->setListIndex(0);
        BibliotecaElegida = NumeroBiblioteca(cboBiblio->Text());
    } else {
        cboBiblio->setEnabled(false);
        BibliotecaElegida = 0;
    }
}

void frmListadoEjemplares::cboBiblio_Click() { BibliotecaElegida = NumeroBiblioteca(cboBiblio->Text()); }

void frmListadoEjemplares::SinEjemplares() {
    for (QPushButton* b : {cmdDetalleNA, cmdVerFicha, cmdImprimir, cmdGrabar}) b->setEnabled(false);
    Frame2->setTitle(QStringLiteral("Se encontraron 0 ejemplares"));
    cmdBuscar->setText(QStringLiteral("&Buscar"));
}

void frmListadoEjemplares::cmdBuscar_Click() {
    const ui::CursorEspera espera(this);
    const QString t = txtBuscar->text();
    QString desde, hasta;
    const int guion = vb::InStr(t, QStringLiteral("-"));
    if (guion > 0) {
        desde = vb::Trim(vb::Left(t, guion - 1));
        hasta = vb::Trim(vb::Mid(t, guion + 1));
    }
    Reporte->Descarta();
    cmdBuscar->setText(QStringLiteral("Nueva &búsqueda"));

    QString fS, fD;
    if (Check1->isChecked() && BibliotecaElegida != 0) {
        fS = QStringLiteral(" AND ( SG.NoBiblioteca=") + QString::number(BibliotecaElegida) + u')';
        fD = QStringLiteral(" AND ( DG.NoBiblioteca=") + QString::number(BibliotecaElegida) + u')';
    }

    // The condition on the request or donation number, by the expression: a range, or a prefix.
    const auto porNumero = [&](const QString& campo, bool entreComillas) {
        if (guion > 0) return campo + QStringLiteral(" BETWEEN ") + desde + QStringLiteral(" AND ") + hasta;
        if (entreComillas) return campo + QStringLiteral(" LIKE '") + t + QStringLiteral("*'");
        return campo + QStringLiteral(" LIKE ") + t;
    };
    const bool porAdquisicion = Option1->isChecked();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Valor.clear();
    if (OptAmbas->isChecked()) {
        // A union of both sides; the close of its first half and the whole second half travel in the order.
        const QString desdeDonaciones = QStringLiteral("FROM ") + numerosAN +
                                        QStringLiteral(", [Donaciones libros] AS DL, [Donaciones General] AS DG WHERE ((");
        QString pS, pD;
        if (porAdquisicion) {
            pS = QStringLiteral("(SL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE '") + t + QStringLiteral("*')");
            pD = desdeDonaciones + QStringLiteral("(AN.NoAdquisicion) Like '") + t + QStringLiteral("*')");
        } else {
            pS = QStringLiteral("(SL.Clavelibro=AN.Clavelibro) AND (") + porNumero(QStringLiteral("SL.NoSolicitud"), true) +
                 u')';
            pD = desdeDonaciones + porNumero(QStringLiteral("(DL.NoDonacion)"), true) + u')';
        }
        c.Campos = QStringLiteral(" * ");
        c.Tabla = QStringLiteral(
                      " (SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares "
                      "recibidos], SL.costo, SL.[Fecha de recepcion], SL.Estado, AN.[Solicitud o donacion]") +
                  QStringLiteral("FROM ") + numerosAN +
                  QStringLiteral(", [Solicitudes libros] AS SL, [Solicitudes General] AS SG WHERE (AN.[Solicitud o "
                                 "donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND ") +
                  pS + fS;
        c.Clave.clear();
        c.Orden = QStringLiteral(" 2, 3)") +
                  QStringLiteral("UNION (SELECT AN.ClaveLibro, AN.NoAdquisicion, DL.NoDonacion, DL.Titulo, DL.Autor, "
                                 "DL.Ejemplares, DL.Costo, DG.Fecha, DG.[Donacion o Intercambio], AN.[Solicitud o donacion] ") +
                  pD + fD +
                  QStringLiteral(" AND ((AN.[Solicitud o donacion])='D') AND ((DG.NoDonacion)=[DL].[NoDonacion]) AND "
                                 "((DL.ClaveLibro)=[AN].[Clavelibro])) ORDER BY 2, 3)");
    } else {
        const bool solicitudes = OptSol->isChecked();
        if (solicitudes) {
            c.Campos = QStringLiteral(
                "AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, "
                "SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion] ");
            c.Tabla = QStringLiteral(" [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG");
            c.Clave = QStringLiteral(" WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND "
                                     "(SL.Clavelibro=AN.Clavelibro) AND ");
        } else {
            c.Campos = QStringLiteral(
                "AN.Clavelibro, AN.Noadquisicion, DL.NoDonacion, DL.titulo, DL.autor, DL.Ejemplares, DL.costo, DG.Fecha,"
                "DG.[Donacion o intercambio], AN.[Solicitud o donacion] ");
            c.Tabla = QStringLiteral(" [Adquisiciones Numadqui] as AN, [Donaciones libros] as DL, [Donaciones General] as DG");
            c.Clave = QStringLiteral(" WHERE (AN.[Solicitud o donacion]='D') AND (DG.NoDonacion=DL.NoDonacion) AND "
                                     "(DL.Clavelibro=AN.Clavelibro) AND ");
        }
        if (porAdquisicion) {
            c.Clave += QStringLiteral("(AN.Noadquisicion LIKE '") + t + QStringLiteral("*')");
            c.Orden = QStringLiteral("2,3");
        } else {
            // A plain number goes in unquoted and whole, unlike the union's prefix.
            const QString campo = solicitudes ? QStringLiteral("SL.NoSolicitud") : QStringLiteral("DL.NoDonacion");
            c.Clave += u'(' + porNumero(campo, false) + u')';
            c.Orden = QStringLiteral("3,2");
        }
        c.Clave += solicitudes ? fS : fD;
    }

    try {
        Datos::LlenaListaCondicion(c, *ListView1);
    } catch (...) {
        // The failure is the program's to tell; the screen stays as after a search that found nothing.
        SinEjemplares();
        throw;
    }
    const int n = ListView1->ListItems().Count();
    if (n == 0) {
        SinEjemplares();
        ui::Sistema().MsgBox(QStringLiteral("No se encontraron ejemplares con este criterio de búsqueda..."), ui::vbExclamation,
                             QStringLiteral("Listado de ejemplares"));
        return;
    }
    for (QPushButton* b : {cmdDetalleNA, cmdVerFicha, cmdImprimir}) b->setEnabled(true);
    Frame2->setTitle(QStringLiteral("Se encontraron ") + QString::number(n) + QStringLiteral(" ejemplare(s)"));
}

const controles::ListItem& frmListadoEjemplares::FilaSeleccionada() const {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    return *item;
}

void frmListadoEjemplares::cmdDetalleNA_Click() {
    const controles::ListItem& fila = FilaSeleccionada();
    const QString clave = fila.Text();
    globales::HuboCambiosNumAdq = false;
    {
        const DesdeElListado desdeListado;
        if (ListView1->ListItems().Count() > 0) {
            if (vb::UCase(fila.SubItems(ColumnaLado)) == QStringLiteral("D")) {
                globales::TitModo = 2;
                globales::TitCampo = QStringLiteral("ClaveLibro");
                globales::TitValor = vb::Variant(clave);
                globales::TitTabla = QStringLiteral("[Donaciones Libros]");
                ui::AbrePantalla(QStringLiteral("Don_Libros"), this);
            } else {
                globales::TitValor = vb::Variant(clave);
                ui::AbrePantalla(QStringLiteral("Recep_Libros"), this);
            }
        }
    }
    if (globales::HuboCambiosNumAdq) cmdBuscar_Click();
    SeleccionaItem(clave);
}

void frmListadoEjemplares::cmdVerFicha_Click() {
    const controles::ListItem& fila = FilaSeleccionada();
    const QString clave = fila.Text();
    globales::HuboCambiosNumAdq = false;
    if (ListView1->ListItems().Count() > 0) {
        globales::NavValor = vb::Variant(static_cast<int>(vb::Val(fila.SubItems(2))));
        if (vb::UCase(fila.SubItems(ColumnaLado)) == QStringLiteral("D")) {
            globales::NavCampo = QStringLiteral("NoDonacion");
            globales::NavModo = 2;
            globales::NavTabla = QStringLiteral("[Donaciones Libros]");
            ui::AbrePantalla(QStringLiteral("Don_Generales"), this);
        } else {
            globales::NavCampo = QStringLiteral("NoSolicitud");
            globales::NavModo = 0;
            globales::NavTabla = QStringLiteral("[Solicitudes Libros]");
            ui::AbrePantalla(QStringLiteral("Recep_Generales"), this);
        }
    }
    if (globales::HuboCambiosNumAdq) cmdBuscar_Click();
    SeleccionaItem(clave);
}

void frmListadoEjemplares::SeleccionaItem(const QString& clave) {
    reportes::SeleccionaFila(*ListView1, 1, clave);
}

void frmListadoEjemplares::GeneraReporteHTML() {
    const int n = ListView1->ListItems().Count();
    const auto numero = reportes::ColumnaReporte{reportes::Celda::Numero, {}};
    const std::vector<reportes::ColumnaReporte> columnas = {
        {},  // the key, hidden
        {},
        numero,
        {},
        {},
        numero,
        numero,
        {reportes::Celda::Fecha, {}},
        {reportes::Celda::Texto, NombreEstado},
        {},   // the side stays a letter: the state already names it
    };
    DocumentoHtml = reportes::PaginaDeLista(QStringLiteral("Reporte de ejemplares existentes"),
                                            QStringLiteral("Total: ") + QString::number(n) + QStringLiteral(" ejemplar(es)"),
                                            *ListView1, columnas);
    if (WebBrowser1) reportes::MuestraPagina(*WebBrowser1, DocumentoHtml, 50000);
}

void frmListadoEjemplares::cmdImprimir_Click() { Reporte->Imprimir(); }

void frmListadoEjemplares::cmdGrabar_Click() { Reporte->Grabar(); }

void frmListadoEjemplares::cmdRegresar_Click() { close(); }

void frmListadoEjemplares::ListView1_ColumnClick(int indiceEncabezado) {
    controles::OrdenaPorColumna(*ListView1, indiceEncabezado);
}
