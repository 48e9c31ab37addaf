#pragma once

class QWidget;

namespace brivandel {

// The pages of the walkthrough, each a widget of its own for the caller to place.
[[nodiscard]] QWidget* makeWelcomePage();
[[nodiscard]] QWidget* makePermissionsPage();
[[nodiscard]] QWidget* makeReadyPage();

} // namespace brivandel
