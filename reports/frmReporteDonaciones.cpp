#include "reports/frmReporteDonaciones.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/ui/Aperturas.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"
#include "reports/Reportes.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("frmReporteDonaciones");
// The donation's number in the list.
constexpr int ColumnaDonacion = 5;

bool EsFecha(const QLineEdit* caja) { return vb::IsDate(vb::Variant(caja->text())); }

// The date of a field as the statement writes it; a text that is no date goes in as it stands.
QString FechaSentencia(const QLineEdit* caja) {
    const vb::Variant texto(caja->text());
    if (!vb::IsDate(texto)) return caja->text();
    return vb::Format(vb::Variant(vb::CDate(texto)), QStringLiteral("mm-dd-yyyy"));
}

// The numeric value of the first three characters of a chosen item; the first item, "-- Todas ... --",
// gives 0.
int NumeroElegido(const controles::ComboBox& combo) {
    if (combo.ListIndex() <= 0) return 0;
    return static_cast<int>(vb::Val(vb::Left(combo.Text(), 3)));
}

}  // namespace

frmReporteDonaciones::frmReporteDonaciones(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmReporteDonaciones"));
    setWindowTitle(QStringLiteral("Reporte de donaciones por institución"));

    txtFecha1 = new QLineEdit(this);
    txtFecha2 = new QLineEdit(this);
    cboDonadora = new controles::ComboBox(this);
    cboBiblio = new controles::ComboBox(this);
    cboOrdenar = new controles::ComboBox(this);
    for (controles::ComboBox* c : {cboDonadora, cboBiblio}) {
        c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        c->setMinimumContentsLength(28);
    }
    cmdBuscar = new QPushButton(QStringLiteral("&Buscar"), this);
    cmdBuscar->setDefault(true);
    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));
    cmdVerFicha = new QPushButton(QStringLiteral("&Mostrar donación"), this);
    cmdImprimir = new QPushButton(QStringLiteral("Generar &reporte"), this);
    cmdGrabar = new QPushButton(QStringLiteral("&Guardar"), this);
    cmdRegresar = new QPushButton(QStringLiteral("&Cancelar"), this);
    picContenedor = reportes::CreaVistaPrevia(this, WebBrowser1);

    const std::pair<QWidget*, const char*> nombres[] = {
        {txtFecha1, "txtFecha1"},     {txtFecha2, "txtFecha2"},     {cboDonadora, "cboDonadora"},
        {cboBiblio, "cboBiblio"},     {cboOrdenar, "cboOrdenar"},   {cmdBuscar, "cmdBuscar"},
        {cmdVerFicha, "cmdVerFicha"}, {cmdImprimir, "cmdImprimir"}, {cmdGrabar, "cmdGrabar"},
        {cmdRegresar, "cmdRegresar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));

    auto* filtros = new QGridLayout;
    filtros->addWidget(new QLabel(QStringLiteral("Fecha inicial:"), this), 0, 0);
    filtros->addWidget(txtFecha1, 0, 1);
    filtros->addWidget(new QLabel(QStringLiteral("Fecha final:"), this), 0, 2);
    filtros->addWidget(txtFecha2, 0, 3);
    filtros->addWidget(new QLabel(QStringLiteral("Institución donadora:"), this), 1, 0);
    filtros->addWidget(cboDonadora, 1, 1, 1, 3);
    filtros->addWidget(new QLabel(QStringLiteral("Biblioteca destino:"), this), 2, 0);
    filtros->addWidget(cboBiblio, 2, 1, 1, 3);
    filtros->addWidget(new QLabel(QStringLiteral("Ordenar por:"), this), 3, 0);
    filtros->addWidget(cboOrdenar, 3, 1);
    filtros->setColumnStretch(1, 1);
    filtros->setColumnStretch(3, 1);
    auto* arriba = new QHBoxLayout;
    arriba->addLayout(filtros, 1);
    arriba->addSpacing(12);
    auto* buscar = new QVBoxLayout;
    buscar->addWidget(cmdBuscar);
    buscar->addStretch(1);
    arriba->addLayout(buscar);
    arriba->addStretch(1);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {cmdVerFicha, cmdImprimir, cmdGrabar}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(cmdRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(Frame2, 1);
    todo->addWidget(picContenedor, 1);
    todo->addLayout(botones);
    resize(1000, 700);

    Reporte = std::make_unique<reportes::ReporteDeLista>(this, cmdImprimir, cmdGrabar, picContenedor, WebBrowser1.get(),
                                                         DocumentoHtml, [this] { GeneraReporteHTML(); });

    ui::Conecta(txtFecha1, &QLineEdit::textChanged, this, origen, &frmReporteDonaciones::txtFecha1_Change);
    ui::Conecta(txtFecha2, &QLineEdit::textChanged, this, origen, &frmReporteDonaciones::txtFecha2_Change);
    ui::Conecta(cboBiblio, &controles::ComboBox::Click, this, origen, &frmReporteDonaciones::cboBiblio_Click);
    ui::Conecta(cboDonadora, &controles::ComboBox::Click, this, origen, &frmReporteDonaciones::cboDonadora_Click);
    ui::Conecta(cmdBuscar, &QPushButton::clicked, this, origen, &frmReporteDonaciones::cmdBuscar_Click);
    ui::Conecta(cmdVerFicha, &QPushButton::clicked, this, origen, &frmReporteDonaciones::cmdVerFicha_Click);
    ui::Conecta(cmdImprimir, &QPushButton::clicked, this, origen, &frmReporteDonaciones::cmdImprimir_Click);
    ui::Conecta(cmdGrabar, &QPushButton::clicked, this, origen, &frmReporteDonaciones::cmdGrabar_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &frmReporteDonaciones::cmdRegresar_Click);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &frmReporteDonaciones::ListView1_ColumnClick);
}

frmReporteDonaciones::~frmReporteDonaciones() = default;

bool frmReporteDonaciones::eventFilter(QObject* objeto, QEvent* evento) {
    // Gaining or losing the focus reads the combo's choice again, as a change does.
    const bool foco = evento->type() == QEvent::FocusIn || evento->type() == QEvent::FocusOut;
    if (foco && objeto == cboBiblio) ui::Protegido(origen, [this] { cboBiblio_Click(); });
    if (foco && objeto == cboDonadora) ui::Protegido(origen, [this] { cboDonadora_Click(); });
    return QDialog::eventFilter(objeto, evento);
}

void frmReporteDonaciones::Form_Load() {
    Fecha1.setTextBox(txtFecha1);
    Fecha2.setTextBox(txtFecha2);
    txtFecha2->setText(vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("dd/mm/yyyy")));

    reportes::LlenaListaNumerada(*cboDonadora, QStringLiteral(" -- Todas las instituciones --"), QStringLiteral("[No], Nombre"),
                                 QStringLiteral("Instituciones"), QStringLiteral("[Nombre]"));
    cboDonadora->setListIndex(0);
    reportes::LlenaListaNumerada(*cboBiblio, QStringLiteral(" -- Todas las bibliotecas --"), QStringLiteral("[No], Nombre"),
                                 QStringLiteral("Bibliotecas"), QStringLiteral("Nombre"));
    cboBiblio->setListIndex(0);
    cboBiblio->installEventFilter(this);
    cboDonadora->installEventFilter(this);

    cboOrdenar->Clear();
    const std::pair<const char*, int> orden[] = {{"Fecha", 5}, {"Institución", 1}, {"Biblioteca", 4}, {"IdDonación", 6}};
    for (const auto& [texto, columna] : orden) {
        cboOrdenar->AddItem(QString::fromUtf8(texto));
        cboOrdenar->setItemData(cboOrdenar->NewIndex(), columna);
    }
    cboOrdenar->setListIndex(0);

    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    auto& columnas = ListView1->ColumnHeaders();
    columnas.Add(QStringLiteral("Institucion donadora"), 3000);
    columnas.Add(QStringLiteral("Titulos"), 800);
    columnas.Add(QStringLiteral("Ejemplares"), 1000);
    columnas.Add(QStringLiteral("Biblioteca depositaria"), 2800);
    columnas.Add(QStringLiteral("Fecha"), 1100);
    columnas.Add(QStringLiteral("IdDonación"), 1000);

    for (QPushButton* b : {cmdVerFicha, cmdImprimir, cmdGrabar}) b->setEnabled(false);
    HabilitaBuscar();
}

// Searching waits for two dates: a field that holds none shows in red, and the statement is never tried.
void frmReporteDonaciones::HabilitaBuscar() { cmdBuscar->setEnabled(EsFecha(txtFecha1) && EsFecha(txtFecha2)); }

void frmReporteDonaciones::txtFecha1_Change() { HabilitaBuscar(); }
void frmReporteDonaciones::txtFecha2_Change() { HabilitaBuscar(); }

void frmReporteDonaciones::cboBiblio_Click() { BibliotecaElegida = NumeroElegido(*cboBiblio); }
void frmReporteDonaciones::cboDonadora_Click() { DonadoraElegida = NumeroElegido(*cboDonadora); }

void frmReporteDonaciones::cmdBuscar_Click() {
    const ui::CursorEspera espera(this);
    cmdBuscar->setText(QStringLiteral("Nueva &búsqueda"));
    Reporte->Descarta();

    const QString d1 = FechaSentencia(txtFecha1);
    const QString d2 = FechaSentencia(txtFecha2);
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("Instituciones.Nombre, count(*) AS Titulos, SUM([Donaciones Libros].[Ejemplares]) AS Ejemplares, "
                              "Bibliotecas.Nombre, fecha, [Donaciones General].NoDonacion ");
    c.Tabla = QStringLiteral(" Bibliotecas, Instituciones, [Donaciones General] INNER JOIN [Donaciones Libros] ON [Donaciones "
                             "General].NoDonacion = [Donaciones Libros].NoDonacion ");
    c.Clave = QStringLiteral(" WHERE [Donaciones general].NoBiblioteca=Bibliotecas.[No] ") +
              QStringLiteral(" AND [Donaciones general].NoInstitucion=Instituciones.[No] ") +
              QStringLiteral(" AND [Donaciones general].fecha BETWEEN ") + u'#' + d1 + u'#' + QStringLiteral(" AND ") + u'#' +
              d2 + u'#';
    if (BibliotecaElegida != 0)
        c.Clave += QStringLiteral(" AND [Donaciones general].NoBiblioteca=") + QString::number(BibliotecaElegida) + u' ';
    if (DonadoraElegida != 0)
        c.Clave += QStringLiteral(" AND [Donaciones general].NoInstitucion=") + QString::number(DonadoraElegida) + u' ';
    // The donation's number in the group keeps apart two libraries or institutions of the same name.
    c.Clave += QStringLiteral(" GROUP BY Instituciones.Nombre, Bibliotecas.Nombre, fecha,  [Donaciones General].NoDonacion ");
    c.Valor.clear();
    c.Orden = QString::number(cboOrdenar->ItemData(cboOrdenar->ListIndex())) + u' ';
    desde_ = EsFecha(txtFecha1) ? vb::CDate(vb::Variant(txtFecha1->text())) : vb::Fecha();
    hasta_ = EsFecha(txtFecha2) ? vb::CDate(vb::Variant(txtFecha2->text())) : vb::Fecha();

    try {
        Datos::LlenaListaCondicion(c, *ListView1);
    } catch (...) {
        for (QPushButton* b : {cmdVerFicha, cmdImprimir, cmdGrabar}) b->setEnabled(false);
        throw;
    }
    const int n = ListView1->ListItems().Count();
    if (n == 0) {
        for (QPushButton* b : {cmdVerFicha, cmdImprimir, cmdGrabar}) b->setEnabled(false);
        Frame2->setTitle(QStringLiteral("Se encontraron 0 donaciones"));
        cmdBuscar->setText(QStringLiteral("&Buscar"));
        ui::Sistema().MsgBox(QStringLiteral("No se encontraron ejemplares con este criterio de búsqueda..."), ui::vbExclamation,
                             QStringLiteral("Listado de donaciones por institución"));
        return;
    }
    cmdVerFicha->setEnabled(true);
    cmdImprimir->setEnabled(true);
    Frame2->setTitle(QStringLiteral("Se encontraron ") + QString::number(n) + QStringLiteral(" donacion(es)"));
}

void frmReporteDonaciones::cmdVerFicha_Click() {
    const controles::ListItem* fila = ListView1->SelectedItem();
    if (!fila) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    const QString clave = fila->SubItems(ColumnaDonacion);
    globales::HuboCambiosNumAdq = false;
    globales::NavCampo = QStringLiteral("NoDonacion");
    globales::NavValor = vb::Variant(static_cast<int>(vb::Val(clave)));
    globales::NavModo = 2;
    globales::NavTabla = QStringLiteral("[Donaciones Libros]");
    ui::AbrePantalla(QStringLiteral("Don_Generales"), this);
    if (globales::HuboCambiosNumAdq) cmdBuscar_Click();
    SeleccionaItem(clave);
}

void frmReporteDonaciones::SeleccionaItem(const QString& clave) {
    reportes::SeleccionaFila(*ListView1, ColumnaDonacion + 1, clave);
}

void frmReporteDonaciones::GeneraReporteHTML() {
    const int n = ListView1->ListItems().Count();
    const auto numero = reportes::ColumnaReporte{reportes::Celda::Numero, {}};
    const auto fecha = [](const vb::Fecha& f) { return vb::Format(vb::Variant(f), QStringLiteral("dd/mmm/yyyy")); };
    DocumentoHtml = reportes::PaginaDeLista(
        QStringLiteral("Reporte de donaciones por institución"),
        QStringLiteral("Periodo: de ") + fecha(desde_) + QStringLiteral(" a ") + fecha(hasta_) + QStringLiteral("<br/>Total: ") +
            QString::number(n) + QStringLiteral(" donacion(es)"),
        *ListView1, {{}, numero, numero, {}, {reportes::Celda::Fecha, {}}, numero});
    if (WebBrowser1) reportes::MuestraPagina(*WebBrowser1, DocumentoHtml, 50000);
}

void frmReporteDonaciones::cmdImprimir_Click() { Reporte->Imprimir(); }

void frmReporteDonaciones::cmdGrabar_Click() { Reporte->Grabar(); }

void frmReporteDonaciones::cmdRegresar_Click() { close(); }

void frmReporteDonaciones::ListView1_ColumnClick(int indiceEncabezado) {
    controles::OrdenaPorColumna(*ListView1, indiceEncabezado);
}
