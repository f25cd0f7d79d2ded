#pragma once
// The login dialog, "  Entrada al sistema".
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

class Leepasswd : public QDialog {
    Q_OBJECT
public:
    explicit Leepasswd(QWidget* padre = nullptr);

    QLineEdit* Text1;       // "Nombre de usuario"
    QLineEdit* Text2;       // "Contraseña", masked
    QPushButton* Command1;  // "&Aceptar"
    QPushButton* Command2;  // "&Cancelar"
    QLabel* Picture1;

    QString Mensaje;        // what the login check leaves for the user
    QString Resultado;      // "OK" on success

    void Form_Load();
    void Form_Activate();
    void Command1_Click();
    void Command2_Click();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void showEvent(QShowEvent* e) override;

private:
    quint8 fallas_ = 0;
};

// The login check against Analistas: the login as the table spells it when accepted, else the empty text.
// Leaves in `mensaje` what the user must be told, if anything particular.
QString ValidaAnalista(const QString& login, const QString& clave, QString& mensaje);

// Element n (1-based) of a comma-separated text, trimmed; empty if there are fewer than n.
QString TomaElementoComa(const QString& texto, qint16 n);
