#include "core/FormPrincipal.h"

#include "core/ActualizaBDsAdq.h"
#include "core/DatosActualiza.h"
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/Leepasswd.h"
#include "core/Rutas.h"
#include "core/dao/Dao.h"
#include "core/frmBrowseHelp.h"
#include "core/frmFecha.h"
#include "core/jet/ConexionPostgres.h"
#include "core/legado/Legado.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"

#include <QDir>
#include <QFontMetrics>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QResizeEvent>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

namespace {

// Twips to pixels at the usual 15 twips a pixel.
int Px(int twips) { return twips / 15; }

// A font of `puntos` points, smaller if need be so that `texto` fits in `ancho` pixels.
QFont LetraQueCabe(QFont letra, int puntos, const QString& texto, int ancho) {
    for (letra.setPointSize(puntos); letra.pointSize() > 6; letra.setPointSize(letra.pointSize() - 1))
        if (QFontMetrics(letra).horizontalAdvance(texto) <= ancho) break;
    return letra;
}

QPixmap Portada(const QSize& tamano) {
    QPixmap p(tamano);
    p.fill(QColor(0x1f, 0x3a, 0x5f));
    QPainter g(&p);
    g.setRenderHint(QPainter::Antialiasing);
    g.setRenderHint(QPainter::TextAntialiasing);
    const QColor claro(0xf2, 0xe9, 0xd0);
    g.setPen(claro);
    // Every line inside the frame, with a margin on each side.
    const int margen = 24;
    const int ancho = tamano.width() - 2 * margen;
    const QString titulo = QStringLiteral("KORVEL 8");
    const QString modulo = QStringLiteral("Módulo de adquisiciones");
    const QString suite = QStringLiteral("Sistema integral de automatización de bibliotecas");
    QFont grande = g.font();
    grande.setBold(true);
    grande = LetraQueCabe(grande, 30, titulo, ancho);
    QFont chica = g.font();
    chica.setBold(false);
    chica = LetraQueCabe(chica, 13, suite, ancho);
    const int altoGrande = QFontMetrics(grande).height();
    const int altoChica = QFontMetrics(chica).lineSpacing();
    int y = (tamano.height() - (altoGrande + 8 + 2 * altoChica)) / 2;
    g.setFont(grande);
    g.drawText(QRect(margen, y, ancho, altoGrande), Qt::AlignCenter, titulo);
    y += altoGrande + 8;
    g.setFont(chica);
    g.drawText(QRect(margen, y, ancho, altoChica), Qt::AlignCenter, modulo);
    y += altoChica;
    g.drawText(QRect(margen, y, ancho, altoChica), Qt::AlignCenter, suite);
    g.setPen(QPen(claro, 2));
    g.drawRect(p.rect().adjusted(6, 6, -7, -7));
    return p;
}

}  // namespace

QHash<QString, FormPrincipal::Apertura>& FormPrincipal::Pantallas() {
    static QHash<QString, Apertura> pantallas = {
        {QStringLiteral("CambioFecha"), [](FormPrincipal& f) { f.CambioFecha_Click(); }},
        {QStringLiteral("Salir"), [](FormPrincipal& f) { f.close(); }},
    };
    return pantallas;
}

void FormPrincipal::RegistraPantalla(const QString& comando, Apertura abre) { Pantallas().insert(comando, std::move(abre)); }

bool FormPrincipal::PantallaDisponible(const QString& comando) { return Pantallas().contains(comando); }

void FormPrincipal::MuestraModal(QDialog& pantalla) { ui::Sistema().MuestraModal(pantalla); }

void FormPrincipal::Ejecuta(const QString& comando) {
    auto it = Pantallas().constFind(comando);
    if (it == Pantallas().constEnd()) return;
    const Apertura abre = *it;
    ui::Protegido(comando, [this, &abre] { abre(*this); });
}

FormPrincipal::FormPrincipal(QWidget* padre) : QMainWindow(padre) {
    setObjectName(QStringLiteral("FormPrincipal"));
    setWindowTitle(QStringLiteral("Módulo de Adquisiciones - KORVEL 8.0"));
    construye();
}

void FormPrincipal::construye() {
    auto* barra = menuBar();
    auto accion = [this](QMenu* menu, const QString& nombre, const QString& texto) {
        QAction* a = menu->addAction(texto);
        a->setObjectName(nombre);
        a->setEnabled(PantallaDisponible(nombre));
        return a;
    };
    auto menu = [&](int i, const QString& nombre, const QString& texto) {
        menus_[i] = barra->addMenu(texto);
        menus_[i]->setObjectName(nombre);
        return menus_[i]->menuAction();
    };

    menuAdministracion = menu(0, QStringLiteral("menuAdministracion"), QStringLiteral("&Finanzas"));
    menuFinanciamiento = accion(menus_[0], QStringLiteral("menuFinanciamiento"), QStringLiteral("&Fuentes de financiamiento"));
    menuProyectos = accion(menus_[0], QStringLiteral("menuProyectos"), QStringLiteral("&Asignación de Recursos"));
    menuPagoFacturas = accion(menus_[0], QStringLiteral("menuPagoFacturas"), QStringLiteral("&Pago de facturas"));
    menus_[0]->addSeparator();
    menuReporteGastosFuente = accion(menus_[0], QStringLiteral("menuReporteGastosFuente"),
                                     QStringLiteral("&Reporte de gastos por Financiamiento"));
    menuReporteGastosEscuela = accion(menus_[0], QStringLiteral("menuReporteGastosEscuela"),
                                      QStringLiteral("&Reporte de gastos por &Escuela"));
    menuAdministracion->setVisible(false);   // shown once an analyst is in

    Catalogos = menu(1, QStringLiteral("Catalogos"), QStringLiteral("&Catálogos"));
    Escuelas = accion(menus_[1], QStringLiteral("Escuelas"), QStringLiteral("&Escuelas"));
    Bibliotecas = accion(menus_[1], QStringLiteral("Bibliotecas"), QStringLiteral("&Bibliotecas"));
    Proveedores = accion(menus_[1], QStringLiteral("Proveedores"), QStringLiteral("&Proveedores"));
    Editoriales = accion(menus_[1], QStringLiteral("Editoriales"), QStringLiteral("E&ditoriales"));
    Instituciones = accion(menus_[1], QStringLiteral("Instituciones"), QStringLiteral("&Instituciones"));

    ProcesoDiario = menu(2, QStringLiteral("ProcesoDiario"), QStringLiteral("&Proceso Diario"));
    Solicitudes = accion(menus_[2], QStringLiteral("Solicitudes"), QStringLiteral("&Solicitudes"));
    Pedidos = accion(menus_[2], QStringLiteral("Pedidos"), QStringLiteral("&Pedidos"));
    Recepcion = accion(menus_[2], QStringLiteral("Recepcion"), QStringLiteral("&Recepción"));
    menus_[2]->addSeparator();
    Consultas = accion(menus_[2], QStringLiteral("Consultas"), QStringLiteral("&Consultas"));
    DonacionCambio = accion(menus_[2], QStringLiteral("DonacionCambio"), QStringLiteral("&Donación"));

    Reportes = menu(3, QStringLiteral("Reportes"), QStringLiteral("&Reportes"));
    Listados = accion(menus_[3], QStringLiteral("Listados"), QStringLiteral("&Listados"));
    EjemAdq = accion(menus_[3], QStringLiteral("EjemAdq"), QStringLiteral("&Ejemplares adquiridos"));

    Utilerias = menu(4, QStringLiteral("Utilerias"), QStringLiteral("&Utilerías"));
    CambioFecha = accion(menus_[4], QStringLiteral("CambioFecha"), QStringLiteral("&Cambio de Fecha"));
    menus_[4]->addSeparator();
    Exportacion = accion(menus_[4], QStringLiteral("Exportacion"), QStringLiteral("&Exportación"));
    Importacion = accion(menus_[4], QStringLiteral("Importacion"), QStringLiteral("&Importación"));

    Salir = barra->addAction(QStringLiteral("&Salir"));
    Salir->setObjectName(QStringLiteral("Salir"));

    for (QAction* a : {menuFinanciamiento, menuProyectos, menuPagoFacturas, menuReporteGastosFuente,
                       menuReporteGastosEscuela, Escuelas, Bibliotecas, Proveedores, Editoriales, Instituciones,
                       Solicitudes, Pedidos, Recepcion, Consultas, DonacionCambio, Listados, EjemAdq, CambioFecha,
                       Exportacion, Importacion, Salir}) {
        const QString comando = a->objectName();
        connect(a, &QAction::triggered, this, [this, comando] { Ejecuta(comando); });
    }

    // The background, the picture buttons and the analyst frame.
    Picture1 = new QWidget(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setAutoFillBackground(true);
    QPalette fondo = Picture1->palette();
    fondo.setColor(QPalette::Window, QColor(0xe8, 0xed, 0xf3));
    Picture1->setPalette(fondo);
    setCentralWidget(Picture1);

    const QStyle* s = style();
    const struct {
        const char* texto;
        QStyle::StandardPixmap icono;
    } botones[9] = {
        {"Solicitudes", QStyle::SP_FileDialogNewFolder}, {"Pedidos", QStyle::SP_FileDialogDetailedView},
        {"Recepción", QStyle::SP_DialogSaveButton},      {"Consultas", QStyle::SP_FileDialogContentsView},
        {"Proyectos", QStyle::SP_DirHomeIcon},            {"Reportes", QStyle::SP_FileIcon},
        {"Ayuda", QStyle::SP_DialogHelpButton},           {"Salir", QStyle::SP_DialogCloseButton},
        {"Donación", QStyle::SP_DialogYesButton},
    };
    auto* fila = new QHBoxLayout;
    fila->setSpacing(6);
    for (int i = 0; i < 9; ++i) {
        auto* b = new QToolButton(Picture1);
        b->setObjectName(QStringLiteral("ToolPPAL_%1").arg(i));
        b->setText(QString::fromUtf8(botones[i].texto));
        b->setIcon(s->standardIcon(botones[i].icono));
        b->setIconSize(QSize(32, 32));
        b->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        b->setMinimumSize(78, 64);
        b->setAutoRaise(true);
        connect(b, &QToolButton::clicked, this, [this, i] {
            ui::Protegido(QStringLiteral("ToolPPAL"), [this, i] { ToolPPAL_Click(i); });
        });
        ToolPPAL[static_cast<size_t>(i)] = b;
        fila->addWidget(b);
    }
    fila->addStretch();
    // Buttons whose screens are not in this build stay disabled.
    const char* comandos[9] = {"Solicitudes", "Pedidos", "Recepcion", "Consultas", "", "Listados", "", "Salir", "DonacionModal"};
    for (int i = 0; i < 9; ++i)
        if (i != 4 && i != 6 && i != 7) ToolPPAL[static_cast<size_t>(i)]->setEnabled(PantallaDisponible(QString::fromLatin1(comandos[i])));

    lblActua = new QLabel(Picture1);
    lblActua->setObjectName(QStringLiteral("lblActua"));
    lblActua->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    FraUsuario = new QGroupBox(QStringLiteral("Analista:"), Picture1);
    FraUsuario->setObjectName(QStringLiteral("FraUsuario"));
    Label1 = new QLabel(QStringLiteral("Nombre:"), FraUsuario);
    Label2 = new QLabel(QStringLiteral("Tipo:"), FraUsuario);
    LblNombre = new QLabel(FraUsuario);
    LblNombre->setObjectName(QStringLiteral("LblNombre"));
    LblTipo = new QLabel(FraUsuario);
    LblTipo->setObjectName(QStringLiteral("LblTipo"));
    auto* datos = new QGridLayout(FraUsuario);
    datos->addWidget(Label1, 0, 0);
    datos->addWidget(LblNombre, 0, 1);
    datos->addWidget(Label2, 1, 0);
    datos->addWidget(LblTipo, 1, 1);
    FraUsuario->setFixedSize(260, 70);

    auto* arriba = new QVBoxLayout(Picture1);
    arriba->addLayout(fila);
    arriba->addStretch();
    arriba->addWidget(lblActua);

    PictureSplash = new QLabel(Picture1);
    PictureSplash->setObjectName(QStringLiteral("PictureSplash"));
    PictureSplash->setPixmap(Portada(QSize(460, 180)));
    PictureSplash->setFixedSize(460, 180);
    PictureSplash->hide();

    Timer1 = new QTimer(this);
    Timer1->setInterval(5000);
    connect(Timer1, &QTimer::timeout, this, [this] { Timer1_Timer(); });

    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    resize(760, 520);
}

QString FormPrincipal::BaseDeTrabajo(const QString& carpetaPrograma, const QString& nombreDado) {
    QString carpeta = carpetaPrograma;
    if (!carpeta.endsWith(u'/') && !carpeta.endsWith(u'\\')) carpeta += u'/';
    auto resuelve = [&carpeta](const QString& nombre) {
        if (jet::EsUriServidor(nombre) || QDir::isAbsolutePath(nombre)) return nombre;
        return carpeta + nombre;
    };
    if (!nombreDado.trimmed().isEmpty()) return resuelve(nombreDado.trimmed());
    QFile ajuste(carpeta + QStringLiteral("KORVEL8.base"));
    if (ajuste.open(QIODevice::ReadOnly | QIODevice::Text)) {
        while (!ajuste.atEnd()) {
            const QString linea = QString::fromUtf8(ajuste.readLine()).trimmed();
            if (!linea.isEmpty() && !linea.startsWith(u'#')) return resuelve(linea);
        }
    }
    return carpeta + QStringLiteral("KORVEL8.mdb");
}

bool FormPrincipal::AbrirBaseDatos() {
    const QString ruta = BaseDeTrabajo(ui::Sistema().RutaPrograma(), NombreBase);
    if (!jet::EsUriServidor(ruta) && legado::EsArchivoLegado(ruta) && !ConvierteBaseLegada(ruta)) return false;
    globales::BaseDatos = dao::Database::OpenDatabase(ruta);
    return true;
}

bool FormPrincipal::ConvierteBaseLegada(const QString& ruta) {
    ui::Plataforma& sistema = ui::Sistema();
    const QString titulo = QStringLiteral("Base de datos de una versión anterior");
    const QString respaldo = QFileInfo(legado::NombreRespaldo(ruta)).fileName();
    const int respuesta = sistema.MsgBox(
        QStringLiteral("La base de datos KORVEL8.mdb está en el formato de las versiones anteriores del sistema, "
                       "que este programa no modifica.") +
            QStringLiteral("\r\n\r\n") +
            QStringLiteral("¿Desea convertirla ahora al formato de esta versión? El archivo original se conservará "
                           "sin cambios, como respaldo, con el nombre %1.").arg(respaldo),
        ui::vbYesNo + ui::vbQuestion, titulo);
    if (respuesta != ui::vbYes) {
        sistema.MsgBox(QStringLiteral("La base de datos no se convirtió y quedó como estaba. El programa no puede trabajar "
                                      "con ella en su formato anterior y se cerrará."),
                       ui::vbExclamation, titulo);
        return false;
    }
    legado::ResultadoEnSuLugar r;
    try {
        const ui::CursorEspera espera(this);
        r = legado::MigraEnSuLugar(ruta);
    } catch (const vb::Error& e) {
        sistema.MsgBox(QStringLiteral("No se pudo convertir la base de datos:") + QStringLiteral("\r\n") + e.Description() +
                           QStringLiteral("\r\n\r\n") +
                           QStringLiteral("El archivo original quedó sin cambios. El programa se cerrará."),
                       ui::vbCritical, titulo);
        return false;
    }
    QString texto = QStringLiteral("La base de datos se convirtió al formato de esta versión: %1 tablas, %2 filas. "
                                   "El archivo original se conservó como %3.")
                        .arg(r.migracion.tablas.size())
                        .arg(r.migracion.filas)
                        .arg(QFileInfo(r.respaldo).fileName());
    if (!r.migracion.avisos.isEmpty()) {
        texto += QStringLiteral("\r\n\r\n") + QStringLiteral("Avisos:");
        for (const QString& aviso : r.migracion.avisos.mid(0, 5)) texto += QStringLiteral("\r\n") + aviso;
        if (r.migracion.avisos.size() > 5) texto += QStringLiteral("\r\n(y %1 más)").arg(r.migracion.avisos.size() - 5);
    }
    sistema.MsgBox(texto, r.migracion.avisos.isEmpty() ? ui::vbInformation : ui::vbExclamation, titulo);
    return true;
}

void FormPrincipal::LeerConfiguracion() {
    using namespace globales;
    NombreBiblioteca = QStringLiteral("Biblioteca");
    NombreInstitucion = QStringLiteral("Institución");
    EtiquetaAlumno = QStringLiteral("Alumno");
    EtiquetaNodeCuenta = QStringLiteral("NodeCuenta");
    EtiquetaNumAdqui = QStringLiteral("NumAdqui");
    EtiquetaProveedor = QStringLiteral("Proveedor");
    EtiquetaEscuela = QStringLiteral("Escuela");
    FixSolDonNumAdqui = false;
    auto rs = Base().OpenRecordset(QStringLiteral("Configuracion"));
    while (!rs->Eof()) {
        const QString clave = vb::UCase(rs->Fields(0).Value().text());
        const QString valor = rs->Fields(1).Value().text();
        if (clave == QLatin1String("BIBLIOTECA")) NombreBiblioteca = valor;
        else if (clave == QLatin1String("INSTITUCION")) NombreInstitucion = valor;
        else if (clave == QLatin1String("ALUMNO")) EtiquetaAlumno = valor;
        else if (clave == QLatin1String("NODECUENTA")) EtiquetaNodeCuenta = valor;
        else if (clave == QLatin1String("NUMADQUI")) EtiquetaNumAdqui = valor;
        else if (clave == QLatin1String("PROVEEDOR")) EtiquetaProveedor = valor;
        else if (clave == QLatin1String("ESCUELA")) EtiquetaEscuela = valor;
        else if (clave == QLatin1String("FIXSOLDONNUMADQUI")) FixSolDonNumAdqui = !valor.isEmpty();
        rs->MoveNext();
    }
    rs->Close();
}

bool FormPrincipal::ArranqueHastaLogin() {
    ui::Plataforma& sistema = ui::Sistema();
    lblActua->setText(QStringLiteral("KORVEL 8.0 act. 4.0 [20081215]"));
    if (!AbrirBaseDatos()) {
        Form_Unload();
        return false;
    }
    if (globales::Base().EnRed() && !globales::AvisoRedMostrado) {
        globales::AvisoRedMostrado = true;
        sistema.MsgBox(QStringLiteral("La base de datos está en una carpeta de red:") + QStringLiteral("\r\n") +
                           QDir::toNativeSeparators(globales::Base().Name()) + QStringLiteral("\r\n\r\n") +
                           QStringLiteral("Se trabajará sin el registro de escritura anticipada. ") +
                           QStringLiteral("Si varias estaciones de trabajo comparten la base de datos, ") +
                           QStringLiteral("conviene que lo hagan a través de un servidor de bases de datos."),
                       ui::vbInformation, QStringLiteral("Base de datos en red"));
    }
    LeerConfiguracion();
    Datos::CorrigeSolDonNumAdqui();
    const QString isbn = Datos::AgregaISBN();
    if (!isbn.isEmpty())
        sistema.MsgBox(isbn, ui::vbInformation, QStringLiteral("Actualización de tabla [ Solicitudes Libros ]"));
    QString mensaje;
    if (!Datos::CreaTablasPagoFacturas(mensaje))
        sistema.MsgBox(mensaje, ui::vbCritical, QStringLiteral("Actualización de tablas Pago Facturas"));
    setWindowTitle(QStringLiteral("KORVEL8 - Módulo de adquisiciones - ") + globales::NombreInstitucion);
    mensaje.clear();
    if (!Datos::CreaMaterialComplementario(mensaje))
        sistema.MsgBox(mensaje, ui::vbCritical, QStringLiteral("Actualización de tabla para Material Complementario"));
    sistema.Muestra(*this);
    PictureSplash->move((Picture1->width() - PictureSplash->width()) / 2, (Picture1->height() - PictureSplash->height()) / 2);

    auto analistas = globales::Base().OpenRecordset(QStringLiteral("SELECT * FROM Analistas"));
    const bool hayAnalistas = !analistas->Eof();
    analistas->Close();
    if (!hayAnalistas) {
        const QDir actual(sistema.DirectorioActual());
        QString utilerias;
        for (const auto& nombre : {QStringLiteral("Utilerias.exe"), QStringLiteral("Utilerias")}) {
            const QFileInfo f(actual.filePath(nombre));
            if (f.exists() && f.isFile()) {
                utilerias = f.absoluteFilePath();
                break;
            }
        }
        if (!utilerias.isEmpty()) {
            sistema.IniciaPrograma(utilerias);
        } else {
            sistema.MsgBox(QStringLiteral("No hay analistas dados de alta,") + QStringLiteral("es necesario que agregue al menos uno ") +
                               QStringLiteral("\r\n") + QStringLiteral("en el módulo de utilerías"),
                           ui::vbExclamation, QStringLiteral("Falta analista"));
        }
        Form_Unload();
        return false;
    }
    QString reporte = ActualizaBDsAdq::ActualizaBDs();
    esquema::CreaIndicesDeConsulta(globales::Base());
    reporte.remove(QLatin1Char('\r'));
    reporte.remove(QLatin1Char('\n'));
    if (!reporte.isEmpty()) sistema.MsgBox(reporte, ui::vbCritical, QStringLiteral("Actualización de Bases de Datos"));
    return true;
}

bool FormPrincipal::Form_Load() {
    if (!ArranqueHastaLogin()) return false;
    ui::Plataforma& sistema = ui::Sistema();

    // "-u usuario -p clave": both, "-p" behind "-u".
    QString usuario, clave;
    bool porLinea = false;
    const QString linea = LineaComandos;
    if (!linea.isEmpty()) {
        const int u = vb::InStr(linea, QStringLiteral("-u"));
        const int p = vb::InStr(linea, QStringLiteral("-p"));
        if (u > 0 && p > 0 && p > u) {
            usuario = vb::Trim(vb::Mid(linea, u + 2, p - u - 2));
            clave = vb::Trim(vb::Mid(linea, p + 2));
            porLinea = true;
        }
    }
    Leepasswd acceso(this);
    if (porLinea) {
        acceso.Text1->setText(usuario);
        acceso.Text2->setText(clave);
        // Called directly: a failure of the check (an apostrophe in the name) is start-up's own.
        acceso.Command1_Click();
    } else {
        sistema.MuestraModal(acceso);
        if (acceso.Resultado != QLatin1String("OK")) {
            Form_Unload();
            return false;
        }
    }
    ConfiguraPermisos();
    LblNombre->setText(QStringLiteral(" ") + globales::LoginAnalista);
    menuAdministracion->setVisible(true);
    const QString direccion = sistema.DireccionLocal();
    globales::EnRedInstitucional = !direccion.isEmpty() && vb::Left(direccion, 7) == QStringLiteral(ADQ_PREFIJO_RED);
    PictureSplash->show();
    PictureSplash->raise();
    Timer1->start();
    return true;
}

bool FormPrincipal::Arranca() {
    const ui::ArranqueEnCurso arranque;
    bool seguir = false;
    ui::Protegido(QStringLiteral("FormPrincipal"), [this, &seguir] { seguir = Form_Load(); });
    return seguir;
}

void FormPrincipal::ConfiguraPermisos() {
    QString tipo = QStringLiteral(" Administrador");
    if (globales::Derechos[2] == 0) tipo = QStringLiteral(" Usuario normal");
    if (globales::Derechos[1] == 0) {
        for (QAction* a : {Proveedores, Editoriales, Solicitudes, Pedidos, Recepcion, DonacionCambio, CambioFecha,
                           Exportacion, Importacion})
            a->setEnabled(false);
        for (int i : {0, 1, 2, 8}) ToolPPAL[static_cast<size_t>(i)]->setEnabled(false);
        tipo = QStringLiteral(" Visitante");
    }
    LblTipo->setText(tipo);
}

void FormPrincipal::Timer1_Timer() {
    Timer1->stop();
    PictureSplash->hide();
}

void FormPrincipal::ToolPPAL_Click(int indice) {
    switch (indice) {
    case 4:
        ui::Sistema().MsgBox(QStringLiteral("Opción no disponible"), ui::vbCritical, QStringLiteral("Adquisiciones"));
        break;
    case 6:
        Ayuda();
        break;
    case 7:
        close();
        break;
    case 0: Ejecuta(QStringLiteral("Solicitudes")); break;
    case 1: Ejecuta(QStringLiteral("Pedidos")); break;
    case 2: Ejecuta(QStringLiteral("Recepcion")); break;
    case 3: Ejecuta(QStringLiteral("Consultas")); break;
    case 5: Ejecuta(QStringLiteral("Listados")); break;
    case 8: Ejecuta(QStringLiteral("DonacionModal")); break;   // from the button the donations screen is modal
    default: break;
    }
}

void FormPrincipal::Ayuda() {
    frmBrowseHelp ayuda(this);
    QString ruta = ui::Sistema().RutaPrograma();
    if (!ruta.endsWith(u'/') && !ruta.endsWith(u'\\')) ruta += u'\\';
    ayuda.WebBrowser1->Navigate(rutas::ArchivoInstalacion(ruta + QStringLiteral("ayuda\\ADQUIS.htm")));
    ayuda.lblTitulo->setText(QStringLiteral("Ayuda del módulo de adquisiciones"));
    ui::Sistema().MuestraModal(ayuda);
}

void FormPrincipal::CambioFecha_Click() {
    frmFecha fecha(this);
    ui::Sistema().MuestraModal(fecha);
}

void FormPrincipal::Form_Unload() { ui::Sistema().Termina(); }

void FormPrincipal::resizeEvent(QResizeEvent* e) {
    QMainWindow::resizeEvent(e);
    // The analyst frame keeps its place at the bottom.
    const int interior = height() - menuBar()->height();
    FraUsuario->move(12, std::max(80, interior - (FraUsuario->height() + Px(1100))));
    if (PictureSplash->isVisible())
        PictureSplash->move((Picture1->width() - PictureSplash->width()) / 2, (Picture1->height() - PictureSplash->height()) / 2);
}

void FormPrincipal::closeEvent(QCloseEvent* e) {
    QMainWindow::closeEvent(e);
    Form_Unload();
}
