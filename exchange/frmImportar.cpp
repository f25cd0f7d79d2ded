#include "exchange/frmImportar.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/TimerReacomodo.h"
#include "core/dao/Dao.h"
#include "core/jet/ErroresMotor.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"
#include "exchange/ArchivoIntercambio.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <functional>

namespace {

const QString origen = QStringLiteral("frmImportar");
const QString tituloMensaje = QStringLiteral("Mensaje");
const QString tituloPreview = QStringLiteral("[Importar: Vista Previa]");
const QString saltoLinea = QStringLiteral("\r\n");
const QString mascaraFecha = QStringLiteral("yyyy/mm/dd hh:mm:ss");

bool ExisteArchivo(const QString& ruta) { return !ruta.isEmpty() && QFileInfo(ruta).isFile(); }

// A field's value as the statements join it in: Null leaves nothing.
QString Dato(dao::Recordset& rs, const QString& campo) { return rs.Fields(campo).Value().text(); }
QString Dato(dao::Recordset& rs, const char* campo) { return Dato(rs, QString::fromUtf8(campo)); }
QString Fecha(dao::Recordset& rs, const char* campo, const QString& mascara) {
    return vb::Format(rs.Fields(QString::fromUtf8(campo)).Value(), mascara);
}
// The same for a page: the value's characters shown as they are.
QString Html(dao::Recordset& rs, const char* campo) { return Dato(rs, campo).toHtmlEscaped(); }
QString Celda(const QString& texto) { return QStringLiteral("<TD>") + texto + QStringLiteral("</TD>"); }

// Nombre of the one row a lookup on the main database finds; found false when there is none.
QString NombreDe(const QString& sql, bool& encontrado) {
    auto rs = globales::Base().OpenRecordset(sql);
    encontrado = !rs->Eof();
    return encontrado ? rs->Fields(0).Value().text().toHtmlEscaped() : QString();
}

QString EncabezadoTabla(std::initializer_list<const char*> columnas) {
    QString h = QStringLiteral("</p><table width=\"100%\" border=\".5\"><tr  bgcolor=\"#CCCCCC\">");
    for (const char* c : columnas) h += Celda(QString::fromUtf8(c));
    return h + QStringLiteral("</TR>");
}

}  // namespace

frmImportar::frmImportar(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmImportar"));
    setWindowTitle(QStringLiteral("Importación de Solicitudes..."));

    txtArchivo = new QLineEdit(this);
    txtArchivo->setObjectName(QStringLiteral("txtArchivo"));
    Command3 = new QPushButton(QStringLiteral("&Examinar"), this);
    Command3->setObjectName(QStringLiteral("Command3"));

    picEstatus = new QFrame(this);
    picEstatus->setObjectName(QStringLiteral("picEstatus"));
    picEstatus->setFrameShape(QFrame::StyledPanel);
    auto* estatus = new QGridLayout(picEstatus);
    const char* rotulos[] = {"Solicitudes:", "Donaciones:", "Títulos:", "Ejemplares:", "Fecha de exportación:"};
    for (int k = 0; k < 5; ++k) {
        lblData[static_cast<size_t>(k)] = new QLabel(picEstatus);
        lblData[static_cast<size_t>(k)]->setObjectName(QStringLiteral("lblData%1").arg(k));
        estatus->addWidget(new QLabel(QString::fromUtf8(rotulos[k]), picEstatus), k, 0);
        estatus->addWidget(lblData[static_cast<size_t>(k)], k, 1);
    }
    estatus->setColumnStretch(1, 1);
    picEstatus->hide();

    txtInicio = new QLineEdit(this);
    txtFinal = new QLineEdit(this);
    txtInicio->setObjectName(QStringLiteral("txtInicio"));
    txtFinal->setObjectName(QStringLiteral("txtFinal"));
    cmdPreview = new QPushButton(QStringLiteral("Previsualizar"), this);
    cmdPreview->setObjectName(QStringLiteral("cmdPreview"));
    Command1 = new QPushButton(QStringLiteral("&Importar"), this);
    Command2 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->hide();

    Frame4 = new QGroupBox(this);
    Frame4->setObjectName(QStringLiteral("Frame4"));
    Label4 = new QLabel(QStringLiteral("   Vista Previa"), Frame4);
    Label5 = new QLabel(Frame4);
    Label5->setObjectName(QStringLiteral("Label5"));
    WebBrowser1 = ui::Sistema().CreaVistaHtml(Frame4);
    auto* vista = new QVBoxLayout(Frame4);
    auto* rotuloVista = new QHBoxLayout;
    rotuloVista->addWidget(Label4);
    rotuloVista->addStretch(1);
    rotuloVista->addWidget(Label5);
    vista->addLayout(rotuloVista);
    if (WebBrowser1 && WebBrowser1->widget()) vista->addWidget(WebBrowser1->widget(), 1);

    // The file and the range on the left, what the file holds beside them; the preview below, at the
    // screen's whole width, which its ten columns want.
    auto* archivo = new QHBoxLayout;
    archivo->addWidget(new QLabel(QStringLiteral("Archivo:"), this));
    archivo->addWidget(txtArchivo, 1);
    archivo->addWidget(Command3);
    auto* rango = new QHBoxLayout;
    rango->addWidget(new QLabel(QStringLiteral("Solicitud inicial"), this));
    rango->addWidget(txtInicio);
    rango->addSpacing(12);
    rango->addWidget(new QLabel(QStringLiteral("Solicitud final"), this));
    rango->addWidget(txtFinal);
    rango->addSpacing(12);
    rango->addWidget(cmdPreview);
    rango->addStretch(1);
    for (QLineEdit* numero : {txtInicio, txtFinal}) numero->setMaximumWidth(160);
    auto* datos = new QVBoxLayout;
    datos->addLayout(archivo);
    datos->addLayout(rango);
    datos->addStretch(1);
    auto* arriba = new QHBoxLayout;
    arriba->addLayout(datos, 1);
    arriba->addWidget(picEstatus);
    picEstatus->setMinimumWidth(280);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(Frame4, 1);
    todo->addLayout(botones);
    // The preview's ten columns want the width; a small screen gets what it has.
    QSize tamano(1280, 720);
    if (const QScreen* pantalla = screen()) tamano = tamano.boundedTo(pantalla->availableSize() * 0.95);
    resize(tamano);

    Timer5 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer5->setObjectName(QStringLiteral("Timer5"));
    Timer5->VigilaRedimension(this);

    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &frmImportar::Command3_Click);
    ui::Conecta(cmdPreview, &QPushButton::clicked, this, origen, &frmImportar::cmdPreview_Click);
    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &frmImportar::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &frmImportar::Command2_Click);
    ui::Conecta(txtArchivo, &QLineEdit::textChanged, this, origen, &frmImportar::txtArchivo_Change);
    ui::Conecta(txtInicio, &QLineEdit::textChanged, this, origen, &frmImportar::txtInicio_Change);
    ui::Conecta(txtFinal, &QLineEdit::textChanged, this, origen, &frmImportar::txtFinal_Change);
}

frmImportar::~frmImportar() = default;

void frmImportar::Form_Load() {
    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    anchoMinimo_ = width();
    altoMinimo_ = height();
    Command1->setEnabled(false);
    cmdPreview->setEnabled(false);
}

void frmImportar::ReacomodaTodo() {
    // The screen is never made smaller than it started.
    if (width() < anchoMinimo_ || height() < altoMinimo_)
        resize(std::max(width(), anchoMinimo_), std::max(height(), altoMinimo_));
}

void frmImportar::Command2_Click() { close(); }

void frmImportar::Command3_Click() {
    Dialog1.titulo = QStringLiteral("Importar Archivo");
    if (!ui::Sistema().AbreArchivo(Dialog1)) return;
    txtArchivo->setText(Dialog1.archivo);
    if (txtArchivo->text().isEmpty()) return;
    picEstatus->hide();
    // Nothing here is told: a file that can't be read, or holds no Metadata, leaves the summary hidden, and
    // a step that fails is passed over as the next one goes on.
    auto sigue = [](const std::function<void()>& paso) {
        try {
            paso();
        } catch (const vb::Error&) {
        }
    };
    std::unique_ptr<dao::Database> base;
    sigue([&] { base = intercambio::AbreBaseIntercambio(Dialog1.archivo); });
    if (!base) return;
    int tablas = 0;
    sigue([&] { tablas = base->TableDefs().Count(); });
    for (int t = 0; t < tablas; ++t) {
        bool esMetadata = false;
        sigue([&] { esMetadata = base->TableDefs()[t].Name() == QLatin1String("Metadata"); });
        if (!esMetadata) continue;
        std::unique_ptr<dao::Recordset> rs;
        sigue([&] { rs = base->OpenRecordset(QStringLiteral("SELECT * FROm metadata")); });
        picEstatus->show();
        if (!rs) continue;
        for (int k = 0; k < 4; ++k)
            sigue([&] { lblData[static_cast<size_t>(k)]->setText(rs->Fields(k).Value().text()); });
        sigue([&] { lblData[4]->setText(vb::Format(rs->Fields(5).Value(), QStringLiteral("dd-mmm-yyyy hh:mm"))); });
        EsDonacion = vb::Val(lblData[1]->text()) > 0;
    }
    base->Close();
}

bool frmImportar::RangoValido() const {
    const QString i = txtInicio->text();
    const QString f = txtFinal->text();
    if (i.isEmpty() || f.isEmpty() || !vb::IsNumeric(vb::Variant(i)) || !vb::IsNumeric(vb::Variant(f))) return false;
    return vb::Variant(i).toDouble() <= vb::Variant(f).toDouble();
}

void frmImportar::txtInicio_Change() {
    const bool valido = RangoValido();
    Command1->setEnabled(valido);
    cmdPreview->setEnabled(valido);
}

void frmImportar::txtFinal_Change() { txtInicio_Change(); }

void frmImportar::txtArchivo_Change() {
    if (RangoValido() && ExisteArchivo(txtArchivo->text())) {
        txtFinal->setText(QString());
        txtInicio->setText(QString());
        WebBrowser1->Navigate(QStringLiteral("about:blank"));
    } else {
        WebBrowser1->Navigate(QStringLiteral("about:blank"));
        Command1->setEnabled(false);
    }
}

void frmImportar::cmdPreview_Click() {
    if (RangoValido()) {
        Command1->setEnabled(true);
        if (ExisteArchivo(txtArchivo->text())) GenerarPreview();
    } else {
        ui::Sistema().Beep();
        Command1->setEnabled(false);
    }
}

bool frmImportar::ExisteTabla(dao::Database& Base, const QString& Tabla, bool& Status) {
    Status = true;
    dao::TableDefsCollection& tablas = Base.TableDefs();
    for (int t = 0; t < tablas.Count(); ++t)
        if (tablas[t].Name() == Tabla) return true;
    return false;
}

long frmImportar::BuscaUltimo(const QString& SQL, const QString& Campo, bool& Status) {
    auto rs = globales::Base().OpenRecordset(SQL);
    long ultimo = 0;
    if (!rs->Eof()) ultimo = rs->Fields(Campo).Value().toLong();
    rs->Close();
    Status = true;
    return ultimo;
}

void frmImportar::Command1_Click() {
    const ui::CursorEspera espera(this);
    const QString i = txtInicio->text();
    const QString f = txtFinal->text();
    if (i.isEmpty() && f.isEmpty() && !vb::IsNumeric(vb::Variant(i)) && !vb::IsNumeric(vb::Variant(f))) {
        ui::Sistema().MsgBox(QStringLiteral("Necesita especificar un rango y debe ser un número"), ui::vbExclamation,
                             tituloMensaje);
        return;
    }
    if (txtArchivo->text().isEmpty()) {
        ui::Sistema().MsgBox(QStringLiteral("Necesita especificar el archivo a importar"), ui::vbExclamation, tituloMensaje);
        return;
    }
    if (!ExisteArchivo(txtArchivo->text())) {
        ui::Sistema().MsgBox(QStringLiteral("No se encontró el archivo con los datos a importar"), ui::vbInformation,
                             QStringLiteral("Importación"));
        return;
    }
    const QString noImportable = QStringLiteral("Este archivo no es un formato importable");
    if (vb::LCase(vb::Right(txtArchivo->text(), 3)) != QLatin1String("exp")) {
        ui::Sistema().MsgBox(noImportable, ui::vbInformation, tituloMensaje);
        return;
    }
    // What this program can't read as a database (a text, an empty or cut file) is no exchange file either.
    try {
        BaseExportada = intercambio::AbreBaseIntercambio(Dialog1.archivo);
    } catch (const vb::Error& e) {
        if (e.Number() != jet::ErrFormatoNoReconocido) throw;
        ui::Sistema().MsgBox(noImportable, ui::vbInformation, tituloMensaje);
        return;
    }
    bool status = false;
    if (ExisteTabla(*BaseExportada, QStringLiteral("Solicitudes General"), status)) {
        EsDonacion = false;
    } else if (ExisteTabla(*BaseExportada, QStringLiteral("Donaciones General"), status)) {
        EsDonacion = true;
    } else {
        BaseExportada.reset();
        ui::Sistema().MsgBox(noImportable, ui::vbInformation, tituloMensaje);
        return;
    }
    Importar(txtArchivo->text());
    BaseExportada->Close();
    BaseExportada.reset();

    if (List1->count() > 0) {
        QString numeros;
        for (int k = 0; k < List1->count(); ++k) numeros += List1->item(k)->text() + QStringLiteral(", ");
        ui::Sistema().MsgBox(QStringLiteral("No se agregaron los siguientes libros ") + saltoLinea + numeros +
                                 QStringLiteral("por tener número de adquisición repetido"),
                             ui::vbExclamation, tituloMensaje);
    } else {
        ui::Sistema().MsgBox(QStringLiteral("Importación satisfactoria"), ui::vbOKOnly, tituloMensaje);
    }
    close();
}

// What the import runs for one set, requests or donations: the loops are the same, the statements differ.
struct frmImportar::PasosImportacion {
    QString cabezas, ordenCabezas;        // the heads of the range: cabezas <i> AND <f> ordenCabezas
    QString campoCabeza;                  // the head's number
    QString ultimaCabeza, cabezaLeida;    // the last head's number here, before and after the insert
    std::function<QString(dao::Recordset& cabeza, long nuevo)> insertaCabeza;
    QString titulos;                      // the titles of a head of the file: titulos <old number>
    QString ultimoTitulo, tituloLeido;    // the last title's key here, before and after the insert
    std::function<QString(dao::Recordset& titulo, long clave, long nuevo)> insertaTitulo;
    bool ejemplaresCompletos;
};

void frmImportar::Importar(const QString& Ruta) {
    Q_UNUSED(Ruta);
    List1->clear();
    static const PasosImportacion solicitudes{
        QStringLiteral("SELECT * FROM [Solicitudes General] WHERE NoSolicitud BETWEEN "),
        QStringLiteral(" ORDER BY NoSolicitud"),
        QStringLiteral("NoSolicitud"),
        QStringLiteral("Select TOP 1 NoSolicitud  From [Solicitudes general] ORDER BY NoSolicitud DESC"),
        QStringLiteral("SELECT TOP 1 * FROM [Solicitudes General] ORDER BY NoSolicitud DESC"),
        [](dao::Recordset& s, long nuevo) {
            return QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                                  "Estado) VALUES (") +
                   QString::number(nuevo) + QStringLiteral(",  '") + Fecha(s, "Fecha", mascaraFecha) + QStringLiteral("', '") +
                   Dato(s, "Solicitante") + QStringLiteral("', ") + Dato(s, "NoEscuela") + QStringLiteral(", ") +
                   Dato(s, "NoBiblioteca") + QStringLiteral(" ,'") + Dato(s, "Estado") + QStringLiteral("')");
        },
        QStringLiteral("SELECT * FROM [Solicitudes Libros] WHERE NoSolicitud="),
        QStringLiteral("SELECT TOP 1 * FROM [Solicitudes Libros] ORDER BY ClaveLibro DESC"),
        QStringLiteral("SELECT TOP 1 * FROM [Solicitudes Libros] ORDER BY ClaveLibro DESC"),
        [](dao::Recordset& l, long clave, long nuevo) {
            const QString inicio = QString::number(clave) + QStringLiteral(", '");
            const QString fin = QStringLiteral("', ") + QString::number(nuevo) + QStringLiteral(")");
            if (l.Fields(QStringLiteral("Fecha de Recepcion")).Value().isNull())
                // Texts go in as they were read: an apostrophe breaks the statement.
                return QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], "
                                      "NoEditorial, Edicion, [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) "
                                      "VALUES (") +
                       inicio + Dato(l, "Titulo") + QStringLiteral("', '") + Dato(l, "Autor") + QStringLiteral("', ") +
                       Dato(l, "Ejemplares pedidos") + QStringLiteral(", ") + Dato(l, "NoEditorial") + QStringLiteral(", ") +
                       Dato(l, "Edicion") + QStringLiteral(", ") + Dato(l, "Ejemplares recibidos") + QStringLiteral(", ") +
                       Dato(l, "Costo") + QStringLiteral(", '") + Dato(l, "Factura") + QStringLiteral("', '") +
                       Dato(l, "Estado") + fin;
            return QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, "
                                  "Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) "
                                  "VALUES (") +
                   inicio + Datos::DuplicaComillas(Dato(l, "Titulo")) + QStringLiteral("', '") +
                   Datos::DuplicaComillas(Dato(l, "Autor")) + QStringLiteral("', ") + Dato(l, "Ejemplares pedidos") +
                   QStringLiteral(", ") + Dato(l, "NoEditorial") + QStringLiteral(", ") + Dato(l, "Edicion") +
                   QStringLiteral(", #") + Fecha(l, "Fecha de Recepcion", mascaraFecha) + QStringLiteral("#, ") +
                   Dato(l, "Ejemplares recibidos") + QStringLiteral(", ") + Dato(l, "Costo") + QStringLiteral(", '") +
                   Datos::DuplicaComillas(Dato(l, "Factura")) + QStringLiteral("', '") + Dato(l, "Estado") + fin;
        },
        true,
    };
    static const PasosImportacion donaciones{
        QStringLiteral("SELECT * FROM [donaciones General] WHERE Nodonacion BETWEEN "),
        QStringLiteral(" ORDER BY Nodonacion"),
        QStringLiteral("NoDonacion"),
        QStringLiteral("Select TOP 1 NoDonacion  From [Donaciones general] ORDER BY NoDonacion DESC"),
        QStringLiteral("SELECT TOP 1 * FROM [donaciones General] ORDER BY Nodonacion DESC"),
        [](dao::Recordset& d, long nuevo) {
            return QStringLiteral("INSERT INTO [donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o "
                                  "Intercambio]) VALUES ( ") +
                   QString::number(nuevo) + QStringLiteral(", '") + Fecha(d, "Fecha", mascaraFecha) + QStringLiteral("',  ") +
                   Dato(d, "NoInstitucion") + QStringLiteral(", ") + Dato(d, "NoBiblioteca") + QStringLiteral(" ,'") +
                   Dato(d, "Donacion o Intercambio") + QStringLiteral("')");
        },
        QStringLiteral("SELECT * FROM [donaciones Libros] WHERE Nodonacion="),
        QStringLiteral("SELECT TOP 1 * FROM [Donaciones Libros] ORDER BY ClaveLibro DESC"),
        QStringLiteral("SELECT TOP 1 * FROM [donaciones Libros] ORDER BY ClaveLibro DESC"),
        [](dao::Recordset& l, long clave, long nuevo) {
            // The cost and the rest stay behind; no quote is doubled here.
            return QStringLiteral("INSERT INTO [donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares , NoEditorial, Edicion,  "
                                  "Nodonacion) VALUES (") +
                   QString::number(clave) + QStringLiteral(", '") + Dato(l, "Titulo") + QStringLiteral("', '") +
                   Dato(l, "Autor") + QStringLiteral("', ") + Dato(l, "Ejemplares") + QStringLiteral(", ") +
                   Dato(l, "NoEditorial") + QStringLiteral(", ") + Dato(l, "Edicion") + QStringLiteral(", ") +
                   QString::number(nuevo) + QStringLiteral(")");
        },
        false,
    };
    ImportaConjunto(EsDonacion ? donaciones : solicitudes, txtInicio->text(), txtFinal->text());
}

void frmImportar::ImportaConjunto(const PasosImportacion& p, const QString& i, const QString& f) {
    dao::Database& base = globales::Base();
    bool status = false;
    const QString claveLibro = QStringLiteral("ClaveLibro");
    auto cabezas = BaseExportada->OpenRecordset(p.cabezas + i + QStringLiteral(" AND ") + f + p.ordenCabezas);
    while (!cabezas->Eof()) {
        const QString viejo = Dato(*cabezas, p.campoCabeza);
        long nuevo = BuscaUltimo(p.ultimaCabeza, p.campoCabeza, status) + 1;
        base.Execute(p.insertaCabeza(*cabezas, nuevo), dao::dbFailOnError);
        nuevo = BuscaUltimo(p.cabezaLeida, p.campoCabeza, status);

        auto libros = BaseExportada->OpenRecordset(p.titulos + viejo);
        while (!libros->Eof()) {
            const QString claveVieja = Dato(*libros, "ClaveLibro");
            const long clave = BuscaUltimo(p.ultimoTitulo, claveLibro, status) + 1;
            base.Execute(p.insertaTitulo(*libros, clave, nuevo), dao::dbFailOnError);
            const long claveNueva = BuscaUltimo(p.tituloLeido, claveLibro, status);
            ImportaEjemplares(claveVieja, claveNueva, p.ejemplaresCompletos);
            libros->MoveNext();
        }
        cabezas->MoveNext();
    }
}

void frmImportar::ImportaEjemplares(const QString& claveVieja, long claveNueva, bool completos) {
    dao::Database& base = globales::Base();
    auto ejemplares = BaseExportada->OpenRecordset(QStringLiteral("SELECT * FROM [Adquisiciones Numadqui] WHERE ClaveLibro=") +
                                                   claveVieja);
    while (!ejemplares->Eof()) {
        dao::Recordset& e = *ejemplares;
        const QString numero = Dato(e, "NoAdquisicion");
        bool tomado = false;
        {
            auto rs = base.OpenRecordset(QStringLiteral("SELECT NoAdquisicion FROM [Adquisiciones Numadqui] WHERE NoAdquisicion='") +
                                         numero + QStringLiteral("'"));
            tomado = !rs->Eof();
        }
        if (tomado) {
            // An accession number is never given another: the copy stays behind, its title one copy short.
            List1->addItem(numero);
        } else if (completos) {
            base.Execute(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], "
                                        "IdCapturista, FechaIngreso, MatComplementario) VALUES ('") +
                             numero + QStringLiteral("', ") + QString::number(claveNueva) + QStringLiteral(", '") +
                             Dato(e, "Solicitud o donacion") + QStringLiteral("', '") + globales::LoginAnalista +
                             QStringLiteral("', #") + Fecha(e, "FechaIngreso", QStringLiteral("yyyy/mm/dd hh:nn")) +
                             QStringLiteral("#, '") + Dato(e, "MatComplementario") + QStringLiteral("' )"),
                         dao::dbFailOnError);
        } else {
            base.Execute(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                                        "VALUES ('") +
                             numero + QStringLiteral("', ") + QString::number(claveNueva) + QStringLiteral(", '") +
                             Dato(e, "Solicitud o donacion") + QStringLiteral("')"),
                         dao::dbFailOnError);
        }
        ejemplares->MoveNext();
    }
}

void frmImportar::SenalDeVida(long posicion) {
    // The two texts take turns: the only sign that the work goes on.
    Label5->setText(posicion % 10 == 0 ? QStringLiteral("Generando vista previa")
                                       : QStringLiteral("Generando vista previa, por favor espere..."));
    // The page is painted meanwhile; the analyst's clicks wait for the preview to end.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmImportar::GenerarPreview() {
    try {
        WebBrowser1->Navigate(QStringLiteral("about:blank"));
        QString buffer = QStringLiteral(" <HTML>") +
                         QStringLiteral("<STYLE type='text/css'>table, body {font-family:tahoma, verdana, arial;font-size:8pt;}</STYLE>") +
                         QStringLiteral("<BODY>");
        const QString i = txtInicio->text();
        const QString f = txtFinal->text();
        if (vb::IsNumeric(vb::Variant(i)) && vb::IsNumeric(vb::Variant(f))) {
            auto base = intercambio::AbreBaseIntercambio(Dialog1.archivo);
            buffer += EsDonacion ? PreviewDonaciones(*base, i, f) : PreviewSolicitudes(*base, i, f);
            base->Close();
        }
        buffer += QStringLiteral(" </BODY> </HTML>");
        WebBrowser1->DocumentOpen();
        WebBrowser1->DocumentWrite(buffer);
        WebBrowser1->DocumentClose();
        Label5->clear();
    } catch (const vb::Error& e) {
        Label5->clear();
        if (e.Number() == jet::ErrTablaNoEncontrada) {
            ui::Sistema().MsgBox(QStringLiteral("La estructura del archivo seleccionado no coincide con la estructura esperada de "
                                                "adquisiciones, probablemente el archivo esté corrupto o haya sido generado con "
                                                "información de otro módulo de KORVEL.") +
                                     saltoLinea + QStringLiteral("Por favor escoja un archivo diferente"),
                                 ui::vbCritical, tituloPreview);
            txtArchivo->clear();
        } else {
            ui::Sistema().MsgBox(QStringLiteral("Ocurrió el error: %1").arg(e.Number()) + saltoLinea + e.Description(),
                                 ui::vbCritical, tituloPreview);
        }
    }
}

long frmImportar::FilasDeLibros(dao::Database& base, const QString& sql,
                                const std::function<QString(dao::Recordset&, const QString&)>& celdas, QString& html) {
    auto libros = base.OpenRecordset(sql);
    long filas = 0;
    while (!libros->Eof()) {
        SenalDeVida(libros->AbsolutePosition());
        bool encontrado = false;
        const QString editorial =
            NombreDe(QStringLiteral("SELECT Nombre FROM Editoriales WHERE [no]=") + Dato(*libros, "NoEditorial"), encontrado);
        html += QStringLiteral("<TR>") + celdas(*libros, editorial) + QStringLiteral("</TR>");
        ++filas;
        libros->MoveNext();
    }
    return filas;
}

QString frmImportar::PreviewDonaciones(dao::Database& base, const QString& i, const QString& f) {
    QString html;
    auto donaciones = base.OpenRecordset(QStringLiteral("SELECT * FROM [Donaciones General] WHERE NoDonacion BETWEEN ") + i +
                                         QStringLiteral(" AND ") + f + QStringLiteral(" ORDER BY NoDonacion"));
    while (!donaciones->Eof()) {
        dao::Recordset& d = *donaciones;
        const QString numero = Dato(d, "NoDonacion");
        html += QStringLiteral("<P>No. de Donacion: ") + Html(d, "NoDonacion") + QStringLiteral("<br> Fecha: ") + Html(d, "Fecha") +
                QStringLiteral("<br>");
        bool encontrado = false;
        QString nombre = NombreDe(QStringLiteral("SELECT Nombre FROM Instituciones WHERE [no]=") + Dato(d, "NoInstitucion"), encontrado);
        if (encontrado) html += QStringLiteral("Escuela: ") + nombre + QStringLiteral("<br>");
        nombre = NombreDe(QStringLiteral("SELECT Nombre FROM Bibliotecas WHERE [no]=") + Dato(d, "NoBiblioteca"), encontrado);
        if (encontrado) html += QStringLiteral("Escuela: ") + nombre + QStringLiteral("<br>");
        const QString tipo = vb::UCase(Dato(d, "Donacion o Intercambio"));
        if (tipo == QLatin1String("I")) html += QStringLiteral("Intercambio<br>");
        else if (tipo == QLatin1String("D")) html += QStringLiteral("Donación<br>");
        html += EncabezadoTabla({"No. Adquisicion", "Título", "Autor", "Editorial", "Edici&oacute;n"});

        const long filas = FilasDeLibros(
            base,
            QStringLiteral("SELECT L.NoDonacion, N.NoAdquisicion , L.Titulo, L.Autor, L.NoEditorial, L.Edicion  FROM [Donaciones "
                           "Libros] L LEFT JOIN [Adquisiciones Numadqui] N ON N.ClaveLibro=L.ClaveLibro WHERE NoDonacion=") +
                numero,
            [](dao::Recordset& l, const QString& editorial) {
                return Celda(Html(l, "NoAdquisicion")) + Celda(Html(l, "Titulo")) + Celda(Html(l, "Autor")) + Celda(editorial) +
                       Celda(Html(l, "Edicion"));
            },
            html);
        html += QStringLiteral("</TABLE><p>Libros de esta donación: %1</p><HR/>").arg(filas);
        donaciones->MoveNext();
    }
    return html;
}

QString frmImportar::PreviewSolicitudes(dao::Database& base, const QString& i, const QString& f) {
    QString html;
    auto solicitudes = base.OpenRecordset(QStringLiteral("SELECT * FROM [Solicitudes General] WHERE NoSolicitud BETWEEN ") + i +
                                          QStringLiteral(" AND ") + f + QStringLiteral(" ORDER BY NoSolicitud"));
    while (!solicitudes->Eof()) {
        dao::Recordset& s = *solicitudes;
        const QString numero = Dato(s, "NoSolicitud");
        html += QStringLiteral("<P>No. de Solicitud: <b>") + Html(s, "NoSolicitud") + QStringLiteral("</b><br> ");
        html += QStringLiteral("Fecha: <b>") + Html(s, "Fecha") + QStringLiteral("</b><br>");
        html += QStringLiteral("Solicitante: <b>") + Html(s, "Solicitante") + QStringLiteral("</b><br>");
        bool encontrado = false;
        QString nombre = NombreDe(QStringLiteral("SELECT Nombre FROM Escuelas WHERE [no]=") + Dato(s, "NoEscuela"), encontrado);
        if (encontrado) html += QStringLiteral("Escuela: <b>") + nombre + QStringLiteral("</b><br>");
        nombre = NombreDe(QStringLiteral("SELECT Nombre FROM Bibliotecas WHERE [no]=") + Dato(s, "NoBiblioteca"), encontrado);
        if (encontrado) html += QStringLiteral("Biblioteca: <b>") + nombre + QStringLiteral("</b><br>");
        const QString estado = vb::UCase(Dato(s, "Estado"));
        if (estado == QLatin1String("R")) html += QStringLiteral("Estado: <b>Adquirido</b><br>");
        else if (estado == QLatin1String("S")) html += QStringLiteral("Estado: <b>Solicitado</b><br>");
        else if (estado == QLatin1String("P")) html += QStringLiteral("Estado: <b>Pedido</b><br>");
        html += EncabezadoTabla({"No. Adquisicion", "Título", "Autor", "Ejemplares Pedidos", "Editorial", "Edici&oacute;n",
                                 "Fecha de Recepci&oacute;n", "Ejemplares Recibidos", "Factura", "Estado"});

        const long filas = FilasDeLibros(
            base,
            QStringLiteral("SELECT L.NoSolicitud, N.NoAdquisicion , L.Titulo, L.Autor, L.[Ejemplares pedidos], L.NoEditorial, "
                           "L.Edicion, L.[Fecha de Recepcion], L.[Ejemplares recibidos], L.Costo, L.Factura, L.Estado FROM "
                           "[Solicitudes Libros] L LEFT JOIN [Adquisiciones Numadqui] N ON N.ClaveLibro=L.ClaveLibro WHERE "
                           "NoSolicitud=") +
                numero,
            [](dao::Recordset& l, const QString& editorial) {
                QString celdas = Celda(Html(l, "NoAdquisicion")) + Celda(Html(l, "Titulo")) + Celda(Html(l, "Autor")) +
                                 Celda(Html(l, "Ejemplares pedidos")) + Celda(editorial) + Celda(Html(l, "Edicion")) +
                                 Celda(Html(l, "Fecha de Recepcion")) + Celda(Html(l, "Ejemplares recibidos")) +
                                 Celda(Html(l, "Factura"));
                const QString estado = vb::UCase(Dato(l, "Estado"));
                if (estado == QLatin1String("A")) return celdas + QStringLiteral("<TD>Adquirido</TD>");
                if (estado == QLatin1String("S")) return celdas + QStringLiteral("<TD>Solicitado</TD>");
                if (estado == QLatin1String("P")) return celdas + QStringLiteral("<TD>Pedido</TD>");
                if (estado == QLatin1String("I")) return celdas + QStringLiteral("<TD>Imposible de Adquirir</TD>");
                return celdas + Celda(QString());
            },
            html);
        html += QStringLiteral("</TABLE><p>Libros de esta solicitud: %1</p><HR/>").arg(filas);
        solicitudes->MoveNext();
    }
    return html;
}
