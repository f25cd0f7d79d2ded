#pragma once
// The module's help pages, shown in the document view.
#include <QDialog>
#include <memory>

class QLabel;
class QPushButton;
class QWidget;
namespace ui { class VistaHtml; }

class frmBrowseHelp : public QDialog {
    Q_OBJECT
public:
    explicit frmBrowseHelp(QWidget* padre = nullptr);
    ~frmBrowseHelp() override;

    std::unique_ptr<ui::VistaHtml> WebBrowser1;
    QPushButton* cmdCerrar;     // "&Cerrar"
    QPushButton* cmdImprimir;   // "&Imprimir"
    QLabel* lblTitulo;
    QWidget* picBotones;
    QWidget* picToolBar;
    QLabel* picLogo;

    void Form_Load();
    void cmdCerrar_Click();
    void cmdImprimir_Click();
};
