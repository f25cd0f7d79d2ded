#include "exchange/frmExportacion.h"

#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"
#include "exchange/ArchivoIntercambio.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("frmExportacion");
const QString tituloMensaje = QStringLiteral("Mensaje");

// The tables of an exchange file, each field with its type and size, in the order they are made.
struct CampoExportado {
    const char* nombre;
    int tipo;
    int tamano;
};
struct TablaExportada {
    const char* nombre;
    std::vector<CampoExportado> campos;
};

const std::vector<TablaExportada>& TablasSolicitudes() {
    static const std::vector<TablaExportada> tablas = {
        {"Solicitudes General",
         {{"NoSolicitud", dao::dbLong, 0}, {"Fecha", dao::dbDate, 0}, {"Solicitante", dao::dbText, 100},
          {"NoEscuela", dao::dbInteger, 0}, {"NoBiblioteca", dao::dbInteger, 0}, {"Estado", dao::dbText, 1},
          {"FechaPedido", dao::dbDate, 0}, {"FechaRecepcion", dao::dbDate, 0}, {"FechaCaptura", dao::dbDate, 0},
          {"FechaEnvio", dao::dbDate, 0}, {"IdCapturista", dao::dbText, 10}, {"TipoMaterial", dao::dbInteger, 0},
          {"IdFinanciamiento", dao::dbInteger, 0}}},
        {"Solicitudes Libros",
         {{"ClaveLibro", dao::dbLong, 0}, {"Titulo", dao::dbText, 100}, {"Autor", dao::dbText, 100},
          {"Ejemplares pedidos", dao::dbInteger, 0}, {"NoEditorial", dao::dbInteger, 0}, {"Edicion", dao::dbInteger, 0},
          {"Fecha de Recepcion", dao::dbDate, 0}, {"Ejemplares recibidos", dao::dbInteger, 0},
          {"Costo", dao::dbCurrency, 0}, {"Factura", dao::dbText, 50}, {"Estado", dao::dbText, 1},
          {"NoSolicitud", dao::dbInteger, 0}, {"IdCapturista", dao::dbText, 10}, {"Ejemp_Recibidos", dao::dbInteger, 0},
          {"ISBN", dao::dbText, 20}}},
        {"Adquisiciones Numadqui",
         {{"NoAdquisicion", dao::dbText, 20}, {"ClaveLibro", dao::dbLong, 0}, {"Solicitud o donacion", dao::dbText, 1},
          {"IdCapturista", dao::dbText, 10}, {"FechaIngreso", dao::dbDate, 0}, {"MatComplementario", dao::dbText, 15}}},
    };
    return tablas;
}

const std::vector<TablaExportada>& TablasDonaciones() {
    static const std::vector<TablaExportada> tablas = {
        {"Donaciones General",
         {{"NoDonacion", dao::dbLong, 0}, {"Fecha", dao::dbDate, 0}, {"NoInstitucion", dao::dbInteger, 0},
          {"NoBiblioteca", dao::dbInteger, 0}, {"Donacion o Intercambio", dao::dbText, 1}}},
        {"Donaciones Libros",
         {{"ClaveLibro", dao::dbLong, 0}, {"Titulo", dao::dbText, 100}, {"Autor", dao::dbText, 100},
          {"Ejemplares", dao::dbInteger, 0}, {"NoEditorial", dao::dbInteger, 0}, {"Edicion", dao::dbInteger, 0},
          {"NoDonacion", dao::dbLong, 0}, {"IdCapturista", dao::dbText, 10}, {"Costo", dao::dbCurrency, 0},
          {"FechaCaptura", dao::dbDate, 0}}},
        {"Adquisiciones Numadqui",
         {{"NoAdquisicion", dao::dbText, 20}, {"ClaveLibro", dao::dbLong, 0}, {"Solicitud o donacion", dao::dbText, 1},
          {"IdCapturista", dao::dbText, 10}, {"FechaIngreso", dao::dbDate, 0}}},
    };
    return tablas;
}

const TablaExportada& TablaMetadata() {
    static const TablaExportada tabla = {
        "Metadata",
        {{"NoSolicitudes", dao::dbLong, 0}, {"NoDonaciones", dao::dbLong, 0}, {"NoTitulos", dao::dbLong, 0},
         {"NoEjemplares", dao::dbLong, 0}, {"IdCapturista", dao::dbText, 10}, {"FechaExportacion", dao::dbDate, 0}}};
    return tabla;
}

// CreateTableDef, CreateField and Append for each field in its order, then Append of the table. No index,
// no key; the state of a request has its default and may be empty.
void CreaTabla(dao::Database& base, const TablaExportada& t) {
    auto def = base.CreateTableDef(QString::fromUtf8(t.nombre));
    for (const CampoExportado& c : t.campos) {
        dao::Field campo = def->CreateField(QString::fromUtf8(c.nombre), c.tipo, c.tamano);
        if (t.nombre == std::string_view("Solicitudes General") && c.nombre == std::string_view("Estado")) {
            campo.setDefaultValue(QStringLiteral("\"S\""));
            campo.setAllowZeroLength(true);
        }
        def->Fields().Append(campo);
    }
    base.TableDefs().Append(std::move(def));
}

}  // namespace

frmExportacion::frmExportacion(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmExportacion"));
    setWindowTitle(QStringLiteral("Exportaciones"));

    Option1 = new QRadioButton(QStringLiteral("Exportar Solicitudes"), this);
    Option2 = new QRadioButton(QStringLiteral("Exportar Donaciones"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2->setObjectName(QStringLiteral("Option2"));
    Label1 = new QLabel(this);
    Label2 = new QLabel(this);
    txtInicio = new QLineEdit(this);
    txtFinal = new QLineEdit(this);
    txtArchivo = new QLineEdit(this);
    txtInicio->setObjectName(QStringLiteral("txtInicio"));
    txtFinal->setObjectName(QStringLiteral("txtFinal"));
    txtArchivo->setObjectName(QStringLiteral("txtArchivo"));
    Command3 = new QPushButton(QStringLiteral("&Examinar"), this);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command2 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));

    auto* opciones = new QHBoxLayout;
    opciones->addWidget(Option1);
    opciones->addWidget(Option2);
    opciones->addStretch(1);
    auto* datos = new QGridLayout;
    datos->addWidget(Label1, 0, 0);
    datos->addWidget(txtInicio, 0, 1);
    datos->addWidget(Label2, 1, 0);
    datos->addWidget(txtFinal, 1, 1);
    datos->addWidget(new QLabel(QStringLiteral("Archivo:"), this), 2, 0);
    auto* archivo = new QHBoxLayout;
    archivo->addWidget(txtArchivo, 1);
    archivo->addWidget(Command3);
    datos->addLayout(archivo, 2, 1);
    datos->setColumnStretch(1, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(opciones);
    todo->addLayout(datos);
    todo->addStretch(1);
    todo->addLayout(botones);
    txtArchivo->setMinimumWidth(360);

    ui::Conecta(Option1, &QRadioButton::clicked, this, origen, &frmExportacion::Option1_Click);
    ui::Conecta(Option2, &QRadioButton::clicked, this, origen, &frmExportacion::Option2_Click);
    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &frmExportacion::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &frmExportacion::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &frmExportacion::Command3_Click);
}

frmExportacion::~frmExportacion() = default;

void frmExportacion::Form_Load() {
    Option1->setChecked(true);
    Option1_Click();
}

void frmExportacion::Option1_Click() {
    Label1->setText(QStringLiteral("Solicitud Inicial:"));
    Label2->setText(QStringLiteral("Solicitud Final:"));
}

void frmExportacion::Option2_Click() {
    Label1->setText(QStringLiteral("Donación Inicial:"));
    Label2->setText(QStringLiteral("Donación Final:"));
}

void frmExportacion::Command3_Click() {
    Dialog1.filtro = QStringLiteral("Archivos de exportación (*.EXP)|*.exp|Todos los Archivos|*.*");
    if (!ui::Sistema().GuardaArchivo(Dialog1)) return;
    txtArchivo->setText(Dialog1.archivo);
}

void frmExportacion::Command2_Click() { close(); }

void frmExportacion::Command1_Click() {
    if (txtInicio->text().isEmpty() && txtFinal->text().isEmpty()) {
        ui::Sistema().MsgBox(QStringLiteral("Necesita especificar un rango"), ui::vbExclamation, tituloMensaje);
        return;
    }
    if (txtArchivo->text().isEmpty()) {
        ui::Sistema().MsgBox(QStringLiteral("Necesita especificar el archivo de salida"), ui::vbExclamation, tituloMensaje);
        return;
    }
    const QString ruta = txtArchivo->text();
    if (QFileInfo(ruta).isFile()) {
        const int r = ui::Sistema().MsgBox(ruta + QStringLiteral(" ya existe desea remplazarlo"), ui::vbOKCancel, tituloMensaje);
        if (r == ui::vbOK) {
            // The file of an export that failed here is still held by this screen: it is let go first.
            if (BaseExportacion) {
                BaseExportacion->Close();
                BaseExportacion.reset();
            }
            intercambio::BorraArchivo(ruta);
            CrearEstruc(ruta);
        }
    } else {
        CrearEstruc(ruta);
    }
    ui::Sistema().MsgBox(QStringLiteral("Se exportaron exitosamente %1 registros").arg(TotalExportados), ui::vbOKOnly,
                         QStringLiteral("Exportación terminada"));
    // Cancelled, the file was never made: there is nothing to close, and that fails as it always has.
    if (!BaseExportacion) vb::ErrorObjetoNoEstablecido();
    BaseExportacion->Close();
    BaseExportacion.reset();
    close();
}

void frmExportacion::CrearEstruc(const QString& Ruta) {
    TotalExportados = 0;
    BaseExportacion = dao::Database::CreateDatabase(Ruta, dao::dbLangSpanish, dao::dbVersion40);
    // The file travels alone: no log beside it.
    BaseExportacion->ArchivoAutonomo();
    const bool solicitudes = Option1->isChecked();
    for (const TablaExportada& t : solicitudes ? TablasSolicitudes() : TablasDonaciones()) CreaTabla(*BaseExportacion, t);
    intercambio::IndicesDeLectura(*BaseExportacion);

    const QString i = txtInicio->text();
    const QString f = txtFinal->text();
    const QString en = QStringLiteral(" IN '") + Ruta + QStringLiteral("' ");
    // Each table of the set with the rows of the range it receives, verbatim: the range goes in unchecked.
    static const char* const copias[2][3][2] = {
        {{"[Solicitudes General]", "SELECT SG.* FROM [Solicitudes General] SG  WHERE SG.NoSolicitud BETWEEN "},
         {"[Solicitudes Libros]", "SELECT L.* FROM [Solicitudes General] G INNER JOIN [Solicitudes Libros] L ON "
                                  "L.NoSolicitud = G.NoSolicitud WHERE G.NoSolicitud BETWEEN "},
         {"[Adquisiciones Numadqui]", "SELECT N.* FROM [Solicitudes General] G INNER JOIN ([Solicitudes Libros] L  INNER JOIN "
                                      "[Adquisiciones Numadqui] N ON L.ClaveLibro = N.ClaveLibro) ON L.NoSolicitud = "
                                      "G.NoSolicitud WHERE G.NoSolicitud BETWEEN "}},
        {{"[Donaciones General]", "SELECT * FROM [Donaciones General] WHERE NoDonacion BETWEEN "},
         {"[Donaciones Libros]", "SELECT L.* FROM [Donaciones General] G INNER JOIN [Donaciones Libros] L ON L.NoDonacion = "
                                 "G.NoDonacion WHERE G.NoDonacion BETWEEN "},
         {"[Adquisiciones Numadqui]", "SELECT N.* FROM [Donaciones General] G INNER JOIN ([Donaciones Libros] L  INNER JOIN "
                                      "[Adquisiciones Numadqui] N ON L.ClaveLibro = N.ClaveLibro) ON L.NoDonacion = "
                                      "G.NoDonacion WHERE G.NoDonacion BETWEEN "}},
    };
    dao::Database& base = globales::Base();
    long long filas[3] = {0, 0, 0};
    for (int k = 0; k < 3; ++k) {
        const auto& copia = copias[solicitudes ? 0 : 1][k];
        base.Execute(QStringLiteral("INSERT INTO ") + QString::fromUtf8(copia[0]) + en + QString::fromUtf8(copia[1]) + i +
                         QStringLiteral(" AND ") + f,
                     dao::dbFailOnError);
        filas[k] = base.RecordsAffected();
        TotalExportados += filas[k];
    }

    CreaTabla(*BaseExportacion, TablaMetadata());
    base.TableDefs().Refresh();
    const QString valores = QStringLiteral("VALUES (%1,%2,%3,%4,'")
                                .arg(solicitudes ? filas[0] : 0)
                                .arg(solicitudes ? 0 : filas[0])
                                .arg(filas[1])
                                .arg(filas[2]) +
                            globales::LoginAnalista + QStringLiteral("',#") +
                            vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("yyyy-mm-dd hh:nn:ss")) +
                            QStringLiteral("#)");
    base.Execute(QStringLiteral("INSERT INTO [Metadata]") + en + valores, dao::dbFailOnError);
    TotalExportados += base.RecordsAffected();
}
