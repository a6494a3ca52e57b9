# Headers that nearly every form includes; precompiling them halves the build time.
function(rostermill_precompile target)
  target_precompile_headers(
    ${target}
    PRIVATE
    <QApplication>
    <QComboBox>
    <QDialog>
    <QGridLayout>
    <QGroupBox>
    <QHBoxLayout>
    <QLabel>
    <QLineEdit>
    <QMainWindow>
    <QMdiArea>
    <QMdiSubWindow>
    <QMessageBox>
    <QPainter>
    <QPushButton>
    <QVBoxLayout>
    <QWidget>
    <algorithm>
    <array>
    <functional>
    <optional>
    <string>
    <vector>)
endfunction()
