#pragma once

class QDialog;

namespace snippetarium {

class ErrorReporter;

/// Shows a dialog until the user closes it; returns its result code (QDialog::Accepted ...). What
/// the user does in it counts as events of their own.
int RunModal(QDialog& dialog, ErrorReporter& reporter);

}  // namespace snippetarium
