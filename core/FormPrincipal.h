#pragma once
// The main window and start-up object: Form_Load opens the database, reads the settings, brings the schema
// up to date, logs the analyst in and sets the session; then the window offers the menu and the picture
// buttons that open every screen.
#include <QDialog>
#include <QMainWindow>
#include <QHash>
#include <QStringList>
#include <array>
#include <functional>

class QAction;
class QGroupBox;
class QLabel;
class QMenu;
class QTimer;
class QToolButton;

class FormPrincipal : public QMainWindow {
    Q_OBJECT
public:
    explicit FormPrincipal(QWidget* padre = nullptr);

    // The program's command line without the options of its own ("-u usuario -p clave").
    QString LineaComandos;
    // The database named on the command line (--base), a file path or a server's URI; empty for the setting.
    QString NombreBase;
    // The database a workstation works on: the one named on the command line, else the first line of the
    // setting KORVEL8.base beside the program (a path, relative to the program's folder, or a URI), else the
    // file KORVEL8.mdb beside the program.
    static QString BaseDeTrabajo(const QString& carpetaPrograma, const QString& nombreDado);

    // Start-up in its order. False when the program must end (no analyst, login refused, too many
    // attempts); an untrapped engine error propagates to the caller.
    bool Form_Load();
    // Form_Load as the program runs it: a failure that nothing traps, there or in the login dialog, shows
    // the default failure box and ends the program. True once the main window stands with an analyst.
    bool Arranca();
    // Steps 1 to 11: up to the moment the login is asked. False when there is no analyst, or the database is
    // a legacy one left unconverted.
    bool ArranqueHastaLogin();
    void Form_Unload();

    void ConfiguraPermisos();
    void ToolPPAL_Click(int indice);
    void Timer1_Timer();

    // Menu commands, by control name.
    QAction* menuAdministracion;
    QAction* menuFinanciamiento;
    QAction* menuProyectos;
    QAction* menuPagoFacturas;
    QAction* menuReporteGastosFuente;
    QAction* menuReporteGastosEscuela;
    QAction* Catalogos;
    QAction* Escuelas;
    QAction* Bibliotecas;
    QAction* Proveedores;
    QAction* Editoriales;
    QAction* Instituciones;
    QAction* ProcesoDiario;
    QAction* Solicitudes;
    QAction* Pedidos;
    QAction* Recepcion;
    QAction* Consultas;
    QAction* DonacionCambio;
    QAction* Reportes;
    QAction* Listados;
    QAction* EjemAdq;
    QAction* Utilerias;
    QAction* CambioFecha;
    QAction* Exportacion;
    QAction* Importacion;
    QAction* Salir;

    std::array<QToolButton*, 9> ToolPPAL{};
    QGroupBox* FraUsuario;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* LblNombre;
    QLabel* LblTipo;
    QLabel* lblActua;
    QLabel* PictureSplash;
    QTimer* Timer1;

    // The screens of the other subsystems register here how the main window opens them, by command name
    // (the menu control's name: "Solicitudes", "Escuelas", ...). A command without a screen in this build
    // stays disabled.
    using Apertura = std::function<void(FormPrincipal&)>;
    static void RegistraPantalla(const QString& comando, Apertura abre);
    static bool PantallaDisponible(const QString& comando);
    // The usual opening: the screen over the main window, loaded, shown modally.
    template <class Pantalla>
    static void RegistraModal(const QString& comando) {
        RegistraPantalla(comando, [](FormPrincipal& principal) {
            Pantalla pantalla(&principal);
            pantalla.Form_Load();
            MuestraModal(pantalla);
        });
    }
    void Ejecuta(const QString& comando);

protected:
    void resizeEvent(QResizeEvent* e) override;
    void closeEvent(QCloseEvent* e) override;

private:
    static void MuestraModal(QDialog& pantalla);
    static QHash<QString, Apertura>& Pantallas();
    QWidget* Picture1;
    QMenu* menus_[6] = {};
    void construye();
    // False when the program must end: a legacy database the analyst didn't convert, or couldn't.
    bool AbrirBaseDatos();
    // Offers to convert a legacy KORVEL8.mdb in its place, the original kept beside it; says how it went.
    bool ConvierteBaseLegada(const QString& ruta);
    void LeerConfiguracion();
    void CambioFecha_Click();
    void Ayuda();
};
