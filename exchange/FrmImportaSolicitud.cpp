#include "exchange/FrmImportaSolicitud.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "exchange/DocumentoSolicitud.h"
#include "exchange/FrmImportaSolicitud_1.h"
#include "exchange/FrmProcesando.h"
#include "exchange/LectorHoja.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHash>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("FrmImportaSolicitud");
const QString CrLf = QStringLiteral("\r\n");
const QString Titulo = QStringLiteral("KORVEL8");

// The first value of a query on the program's database, "" when there is no row or it is Null.
QString PrimerValor(const QString& sql) {
    auto rs = globales::Base().OpenRecordset(sql);
    const QString valor = rs->Eof() ? QString() : rs->Fields(0).Value().text();
    rs->Close();
    return valor;
}

void CajaPendiente() {
    ui::Sistema().MsgBox(QStringLiteral("No se puede grabar esta solicitud porque hay material pendiente por revisar"),
                         ui::vbOKOnly, Titulo);
}

// The fields of one title's row, from its list item.
void AsignaTitulo(dao::Recordset& rs, const controles::ListItem& item, const QString& noSolicitud) {
    rs(QStringLiteral("Titulo")) = vb::Variant(item.Text());
    rs(QStringLiteral("Autor")) = vb::Variant(item.SubItems(1));
    rs(QStringLiteral("Edicion")) = vb::Variant(item.SubItems(4));
    rs(QStringLiteral("Ejemplares Pedidos")) = vb::Variant(item.SubItems(5));
    rs(QStringLiteral("IdCapturista")) = vb::Variant(globales::LoginAnalista);
    rs(QStringLiteral("Estado")) = vb::Variant(QStringLiteral("S"));
    rs(QStringLiteral("NoSolicitud")) = vb::Variant(noSolicitud);
    rs(QStringLiteral("ISBN")) = vb::Variant(item.SubItems(3));
    rs(QStringLiteral("NoEditorial")) = vb::Variant(item.SubItems(6));
}

}  // namespace

FrmImportaSolicitud::FrmImportaSolicitud(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("FrmImportaSolicitud"));
    setWindowTitle(QStringLiteral("Importacion de Solicitudes - KORVEL8"));

    TxtRuta = new QLineEdit(this);
    BtnExmaniar = new QPushButton(QStringLiteral("&Examinar..."), this);
    BtnImportar = new QPushButton(QStringLiteral("&Importar"), this);
    auto* marcoDatos = new QGroupBox(QStringLiteral("Datos Generales de la Solicitud"), this);
    TxtContenido = new QPlainTextEdit(marcoDatos);
    TxtContenido->setReadOnly(true);
    TxtContenido->setLineWrapMode(QPlainTextEdit::NoWrap);
    LstLibros = controles::ListaEnMarco(this, Frame1, QStringLiteral("Frame1"));
    LstLibros->setObjectName(QStringLiteral("LstLibros"));
    LstLibros->MultiSelect(true);
    Frame1->setTitle(QStringLiteral("Resultados"));
    BtnAgregar = new QPushButton(QStringLiteral("Agregar"), this);
    BtnModificar = new QPushButton(QStringLiteral("Modificar"), this);
    BtnEliminar = new QPushButton(QStringLiteral("Eliminar"), this);
    BtnGrabar = new QPushButton(QStringLiteral("Grabar Solicitud"), this);
    BtnRegresar = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {TxtRuta, "TxtRuta"},           {BtnExmaniar, "BtnExmaniar"},   {BtnImportar, "BtnImportar"},
        {TxtContenido, "TxtContenido"}, {BtnAgregar, "BtnAgregar"},     {BtnModificar, "BtnModificar"},
        {BtnEliminar, "BtnEliminar"},   {BtnGrabar, "BtnGrabar"},       {BtnRegresar, "BtnRegresar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    // A request is written once a document has been read whole.
    BtnGrabar->setEnabled(false);

    auto* ruta = new QHBoxLayout;
    ruta->addWidget(new QLabel(QStringLiteral("Archivo:"), this));
    ruta->addWidget(TxtRuta, 1);
    ruta->addWidget(BtnExmaniar);
    ruta->addWidget(BtnImportar);
    auto* datos = new QVBoxLayout(marcoDatos);
    datos->addWidget(TxtContenido);
    TxtContenido->setFixedHeight(TxtContenido->fontMetrics().lineSpacing() * 6 + 12);
    auto* edicion = new QVBoxLayout;
    edicion->addWidget(BtnAgregar);
    edicion->addWidget(BtnModificar);
    edicion->addWidget(BtnEliminar);
    edicion->addStretch(1);
    auto* centro = new QHBoxLayout;
    centro->addWidget(Frame1, 1);
    centro->addLayout(edicion);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(BtnGrabar);
    botones->addWidget(BtnRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(ruta);
    todo->addWidget(marcoDatos);
    todo->addLayout(centro, 1);
    todo->addLayout(botones);
    resize(1000, 620);

    ui::Conecta(BtnExmaniar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud::BtnExmaniar_Click);
    ui::Conecta(BtnImportar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud::BtnImportar_Click);
    ui::Conecta(BtnAgregar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud::BtnAgregar_Click);
    ui::Conecta(BtnModificar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud::BtnModificar_Click);
    ui::Conecta(BtnEliminar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud::BtnEliminar_Click);
    ui::Conecta(BtnGrabar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud::BtnGrabar_Click);
    ui::Conecta(BtnRegresar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud::BtnRegresar_Click);
    ui::Conecta(LstLibros, &controles::ListView::ColumnClick, this, origen, &FrmImportaSolicitud::LstLibros_ColumnClick);
}

FrmImportaSolicitud::~FrmImportaSolicitud() { Form_Unload(); }

void FrmImportaSolicitud::closeEvent(QCloseEvent* e) {
    Form_Unload();
    QDialog::closeEvent(e);
}

void FrmImportaSolicitud::Form_Load() {
    // The screen writes through a connection of its own to the database the program has open.
    conexion_ = dao::Database::OpenDatabase(globales::Base().Name());
    LstLibros->View(controles::ListView::lvwReport);
    LstLibros->ColumnHeaders().Clear();
    LstLibros->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    LstLibros->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    LstLibros->ColumnHeaders().Add(QStringLiteral("Titulo"), 1500);
    LstLibros->ColumnHeaders().Add(QStringLiteral("Autor"), 1500);
    LstLibros->ColumnHeaders().Add(QStringLiteral("Editorial"), 1500);
    LstLibros->ColumnHeaders().Add(QStringLiteral("ISBN"), 1000);
    LstLibros->ColumnHeaders().Add(QStringLiteral("Edición"), 1200);
    LstLibros->ColumnHeaders().Add(QStringLiteral("Ejemplares"), 1200);
    LstLibros->ColumnHeaders().Add(QString(), 0);      // the publisher's number
}

void FrmImportaSolicitud::Form_Unload() {
    if (conexion_) conexion_->Close();
    conexion_.reset();
}

// ---- Choosing and loading the document ---------------------------------------------------------------------

void FrmImportaSolicitud::BtnExmaniar_Click() {
    // The offices send the newer workbooks as well: they have an entry of their own after the usual two.
    ComDial.filtro = QStringLiteral("Archivos XML (*.xml)|*.xml|Archivos de Excel (*.xls)|*.xls|Archivos de Excel 2007 (*.xlsx)|*.xlsx");
    if (!ui::Sistema().AbreArchivo(ComDial)) throw vb::Error(32755, QStringLiteral("Se seleccionó Cancelar."));
    TxtRuta->setText(ComDial.archivo);
    const QString extension = vb::LCase(vb::Right(ComDial.archivo, 3));
    if (extension == u"xls" || intercambio::EsLibroXlsx(ComDial.archivo)) {
        FrmProcesando procesando(this);
        procesando.Importacion = this;
        ui::Sistema().MuestraModal(procesando);
    } else if (extension != u"xml") {
        ui::Sistema().MsgBox(QStringLiteral("El archivo seleccionado no contiene un formato válido para realizar la importación") +
                                 CrLf + QStringLiteral("Por favor seleccione un archivo con extensión XML ó XLS"),
                             ui::vbCritical, Titulo);
        TxtRuta->clear();
    }
}

void FrmImportaSolicitud::BtnImportar_Click() {
    if (TxtRuta->text().isEmpty()) {
        ui::Sistema().MsgBox(QStringLiteral("No ha seleccionado la ruta del archivo"), ui::vbCritical, Titulo);
        BtnExmaniar_Click();
        return;
    }
    CargaDoc(TxtRuta->text());
}

void FrmImportaSolicitud::CargaDoc(const QString& ruta) {
    ui::Plataforma& sistema = ui::Sistema();
    try {
        intercambio::DocumentoXml documento;
        if (!documento.load(ruta)) {
            sistema.MsgBox(QStringLiteral("Ha ocurrido un error."));
            return;
        }
        globales::ConsultaDatos& c = globales::Consulta;
        c.Campos = QStringLiteral("Max(Nosolicitud) as MaxS");
        c.Tabla = QStringLiteral("[Solicitudes General]");
        c.Clave.clear();
        c.Valor.clear();
        c.Orden.clear();
        const QString maximo = Datos::ConsultaCampos(c);
        const QString numero = maximo.isEmpty() ? QStringLiteral("1") : vb::CStr(vb::Variant(vb::Val(maximo) + 1));
        const intercambio::DatosGenerales d = intercambio::LeeDatosGenerales(documento);

        const QString escuela =
            PrimerValor(QStringLiteral("SELECT Escuelas.Nombre FROM Escuelas Where Escuelas.no = ") + d.ClaveEscuela);
        const QString noBiblioteca =
            PrimerValor(QStringLiteral("SELECT Escuelas.NoBiblioteca FROM Escuelas WHERE Escuelas.No=") + d.ClaveEscuela);
        const QString biblioteca = noBiblioteca.isEmpty()
                                       ? QString()
                                       : PrimerValor(QStringLiteral("SELECT Bibliotecas.Nombre FROM Bibliotecas WHERE Bibliotecas.No=") +
                                                     noBiblioteca);
        TxtContenido->setPlainText(QStringList{QStringLiteral("Solicitud: ") + numero, QStringLiteral("Fecha: ") + d.FechaEnvio,
                                               QStringLiteral("Solicitante: ") + d.Director,
                                               QStringLiteral("Escuela: ") + escuela,
                                               QStringLiteral("Biblioteca: ") + biblioteca}
                                       .join(u'\n'));
        NoSolicitud = numero;
        NoEscuela = d.ClaveEscuela;
        NoBiblioteca = noBiblioteca;
        TotalLibros = d.TotalLibros;
        TotalEjemplares = d.TotalEjemplares;
        FechaEnvio = d.FechaEnvio;
        Director = d.Director;
        // A document whose titles can't be read leaves nothing to write.
        if (!LeeLibros(documento)) NoSolicitud.clear();
        BtnGrabar->setEnabled(!NoSolicitud.isEmpty());
    } catch (const vb::Error& e) {
        if (e.Number() == 91)
            sistema.MsgBox(QStringLiteral("No se reconoce el formato del Archivo XML par su importación a KORVEL") + CrLf +
                               QStringLiteral("Por favor, verifique el archivo"),
                           ui::vbOKOnly, Titulo);
        else
            sistema.MsgBox(QStringLiteral("Error No. ") + QString::number(e.Number()) + CrLf + e.Description());
    }
}

bool FrmImportaSolicitud::LeeLibros(const intercambio::DocumentoXml& documento) {
    LstLibros->ListItems().Clear();
    try {
        auto editoriales = globales::Base().OpenRecordset(QStringLiteral("Editoriales"), dao::dbOpenDynaset);
        // A request names the same few publishers again and again: each name is searched once.
        QHash<QString, int> halladas;
        const auto numeroEditorial = [&editoriales, &halladas](const QString& nombre) {
            const auto it = halladas.constFind(nombre);
            if (it != halladas.constEnd()) return *it;
            editoriales->FindFirst(QStringLiteral("Nombre='") + nombre + u'\'');
            const int numero =
                editoriales->NoMatch() ? 0 : static_cast<int>(vb::CLng(editoriales->Fields(QStringLiteral("No")).Value()));
            halladas.insert(nombre, numero);
            return numero;
        };
        const std::vector<intercambio::FilaTitulo> filas = intercambio::LeeFichas(documento, TotalLibros, numeroEditorial);
        editoriales->Close();
        for (const intercambio::FilaTitulo& fila : filas) {
            controles::ListItem* item = LstLibros->ListItems().Add(fila.Titulo);
            for (int i = 1; i <= 6; ++i)
                if (!fila.SubItems[static_cast<size_t>(i)].isEmpty()) item->setSubItems(i, fila.SubItems[static_cast<size_t>(i)]);
        }
        Frame1->setTitle(QStringLiteral("Resultados: Ejemplares=") + TotalEjemplares + QStringLiteral(" Libros=") + TotalLibros);
        ReparteAnchoLibre();
        return true;
    } catch (const vb::Error&) {
        ui::Sistema().MsgBox(QStringLiteral("El formato del archivo no es el correcto") + CrLf +
                                 QStringLiteral("No se logró realizar la Importación"),
                             ui::vbOKOnly, Titulo);
        Frame1->setTitle(QStringLiteral("Resultados"));
        LstLibros->ListItems().Clear();
        return false;
    }
}

// ---- Mending the titles -----------------------------------------------------------------------------------------

void FrmImportaSolicitud::MuestraCuentaDeLibros() {
    Frame1->setTitle(QStringLiteral("Resultados: Libros=") + QString::number(LstLibros->ListItems().Count()));
}

void FrmImportaSolicitud::ReparteAnchoLibre() {
    QHeaderView* encabezado = LstLibros->header();
    const int libre = LstLibros->viewport()->width() - encabezado->length();
    if (libre <= 0) return;
    // What each column's widest text needs, over the first rows (a request's titles are alike).
    const QFontMetrics letra = LstLibros->fontMetrics();
    const int margen = 2 * letra.averageCharWidth();
    const int filas = std::min(LstLibros->topLevelItemCount(), 500);
    std::vector<int> falta(static_cast<size_t>(encabezado->count()), 0);
    int total = 0;
    for (int i = 0; i < encabezado->count(); ++i) {
        // The hidden column of the publisher's number stays hidden.
        if (encabezado->sectionSize(i) == 0) continue;
        int necesita = encabezado->sectionSizeHint(i);
        for (int f = 0; f < filas; ++f)
            necesita = std::max(necesita, letra.horizontalAdvance(LstLibros->topLevelItem(f)->text(i)) + margen);
        falta[static_cast<size_t>(i)] = std::max(0, necesita - encabezado->sectionSize(i));
        total += falta[static_cast<size_t>(i)];
    }
    if (total == 0) return;
    for (int i = 0; i < encabezado->count(); ++i) {
        const qint64 pide = falta[static_cast<size_t>(i)];
        const int extra = static_cast<int>(total <= libre ? pide : pide * libre / total);
        if (extra > 0) encabezado->resizeSection(i, encabezado->sectionSize(i) + extra);
    }
}

void FrmImportaSolicitud::BtnAgregar_Click() {
    FrmImportaSolicitud_1 editor(this);
    editor.Importacion = this;
    editor.Nuevo = true;
    editor.Form_Load();
    ui::Sistema().MuestraModal(editor);
}

void FrmImportaSolicitud::BtnModificar_Click() {
    const controles::ListItem* item = LstLibros->SelectedItem();
    if (!item) return;
    FrmImportaSolicitud_1 editor(this);
    editor.Importacion = this;
    editor.Nuevo = false;
    editor.Form_Load();
    editor.TxtTitulo->setText(item->Text());
    editor.TxtAutor->setText(item->SubItems(1));
    editor.TxtEditorial->setText(item->SubItems(6));
    editor.TxtISBN->setText(item->SubItems(3));
    editor.TxtEdicion->setText(item->SubItems(4));
    editor.TxtEjemplar->setText(item->SubItems(5));
    for (const QString& valor : {item->Text(), item->SubItems(1), item->SubItems(2), item->SubItems(3), item->SubItems(4),
                                 item->SubItems(5)}) {
        if (valor.contains(QLatin1String("**"))) {
            QString editorial = item->SubItems(2);
            if (editorial.startsWith(intercambio::MarcaEditorialDesconocida))
                editorial.remove(0, intercambio::MarcaEditorialDesconocida.size());
            editor.EtNoReconocida->setText(QStringLiteral("Editorial NO Reconocida: ") + editorial);
            break;
        }
    }
    ui::Sistema().MuestraModal(editor);
}

void FrmImportaSolicitud::BtnEliminar_Click() {
    const int r = ui::Sistema().MsgBox(QStringLiteral("¿Está seguro que desea borrar el ejemplar?"), ui::vbYesNo,
                                       QStringLiteral("Precaución"));
    if (r != ui::vbYes) return;
    for (int i = LstLibros->ListItems().Count(); i >= 1; --i)
        if (LstLibros->ListItems()(i).Selected()) LstLibros->ListItems().Remove(i);
    LstLibros->update();
    MuestraCuentaDeLibros();
}

void FrmImportaSolicitud::LstLibros_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*LstLibros, indiceEncabezado); }

// ---- Writing the request --------------------------------------------------------------------------------------

void FrmImportaSolicitud::SenalaPendiente(controles::ListItem& item) {
    CajaPendiente();
    LstLibros->clearSelection();
    item.setSelected(true);
    item.EnsureVisible();
}

void FrmImportaSolicitud::BtnGrabar_Click() {
    for (int i = 1; i <= LstLibros->ListItems().Count(); ++i) {
        controles::ListItem& item = LstLibros->ListItems()(i);
        if (item.SubItems(2).contains(QLatin1String("**"))) {
            SenalaPendiente(item);
            return;
        }
    }
    try {
        Grabar();
    } catch (const vb::Error& e) {
        if (e.Number() == 3022)
            ui::Sistema().MsgBox(QStringLiteral("La solicitud que intenta grabar ya fue grabada anteriormente") + CrLf +
                                 QStringLiteral("No. Solicitud = ") + NoSolicitud);
        else
            ui::Sistema().MsgBox(QStringLiteral("Error No. ") + QString::number(e.Number()) + CrLf + e.Description());
    }
}

void FrmImportaSolicitud::Grabar() {
    if (!conexion_) intercambio::ErrorObjetoNoEstablecido();
    auto general = conexion_->OpenRecordset(QStringLiteral("Solicitudes General"));
    auto libros = conexion_->OpenRecordset(QStringLiteral("Solicitudes Libros"));
    // Each title is tried on a row that is never written: one its table can't hold (a text too long, an
    // edition or a count that is no number) is shown for review before anything is written, so that a
    // request is never left with part of its titles.
    for (int i = 1; i <= LstLibros->ListItems().Count(); ++i) {
        controles::ListItem& item = LstLibros->ListItems()(i);
        libros->AddNew();
        try {
            AsignaTitulo(*libros, item, NoSolicitud);
        } catch (const vb::Error&) {
            libros->CancelUpdate();
            SenalaPendiente(item);
            return;
        }
        libros->CancelUpdate();
    }

    general->AddNew();
    (*general)(QStringLiteral("NoSolicitud")) = vb::Variant(NoSolicitud);
    (*general)(QStringLiteral("Fecha")) = vb::Variant(FechaEnvio);
    (*general)(QStringLiteral("Solicitante")) = vb::Variant(Director);
    (*general)(QStringLiteral("NoEscuela")) = vb::Variant(NoEscuela);
    if (!NoBiblioteca.isEmpty() && vb::Val(NoBiblioteca) <= 255)
        (*general)(QStringLiteral("NoBiblioteca")) = vb::Variant(NoBiblioteca);
    (*general)(QStringLiteral("Estado")) = vb::Variant(QStringLiteral("S"));
    (*general)(QStringLiteral("FechaCaptura")) = vb::Variant(vb::Fecha::Now());
    (*general)(QStringLiteral("IdCapturista")) = vb::Variant(globales::LoginAnalista);
    general->Update();

    for (int i = 1; i <= LstLibros->ListItems().Count(); ++i) {
        libros->AddNew();
        AsignaTitulo(*libros, LstLibros->ListItems()(i), NoSolicitud);
        libros->Update();
    }
    general.reset();
    libros.reset();
    ui::Sistema().MsgBox(QStringLiteral("La solicitud ha sido grabada satisfactoriamente en el sistema !!!"), ui::vbOKOnly, Titulo);
    close();
}

void FrmImportaSolicitud::BtnRegresar_Click() { close(); }
