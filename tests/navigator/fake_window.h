#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "navigator/layout.h"
#include "navigator/program_run.h"

namespace snippetarium::test {

using Log = std::vector<std::string>;

/// A main window that writes down what it is told, and has the tabs that it was given.
class FakeWindow final : public LayoutWindow, public ProgramWindow {
  public:
    Log log;
    WindowPlace place{.left = 30, .top = 60, .width = 12000, .height = 9000};
    ClientSize client{.width = 12000, .height = 8000};
    PagePlace page;
    /// The tabs of each side, the front one last.
    std::map<Side, std::vector<Pane>> tabs;
    std::vector<std::string> openForms;
    /// What happens while the contents are loaded, and when the window is closed.
    std::function<void()> whileLoading;
    std::function<void()> onClose;

    Log TakeLog() { return std::exchange(log, {}); }

    WindowPlace Place() const override { return place; }
    void SetPlace(const WindowPlace& newPlace) override {
        place = newPlace;
        log.push_back("place");
    }
    ClientSize Client() const override { return client; }
    void DockPane(Pane pane, Side side, bool isFront) override {
        UndockPane(pane);
        std::vector<Pane>& panes = tabs[side];
        panes.insert(isFront ? panes.end() : panes.begin(), pane);
        log.push_back("dock " + NameOf(pane));
    }
    void UndockPane(Pane pane) override {
        for (auto& [side, panes] : tabs)
            std::erase(panes, pane);
    }
    void SetSideWidth(Side, std::int32_t) override {}
    void PlacePage(const PagePlace& newPlace) override {
        page = newPlace;
        log.push_back("page");
    }

    void ShowSplash() override { log.push_back("splash"); }
    void CloseSplash() override { log.push_back("close splash"); }
    void SetWrapCommands(bool wrap) override { log.push_back(wrap ? "wrap on" : "wrap off"); }
    void LoadContents() override {
        log.push_back("load");
        if (whileLoading) whileLoading();
    }
    void FinishIndexPane() override { log.push_back("index"); }
    void Close() override {
        log.push_back("close");
        if (onClose) onClose();
    }
    std::vector<std::string> OpenForms() const override { return openForms; }
    void SetParentUnloading(std::string_view form) override {
        log.push_back("unloading " + std::string(form));
    }
    void CloseForm(std::string_view form) override {
        log.push_back("close " + std::string(form));
        std::erase(openForms, form);
    }

  private:
    static std::string NameOf(Pane pane) {
        static const std::map<Pane, std::string> kNames = {{Pane::Contents, "contents"},
                                                           {Pane::Search, "search"},
                                                           {Pane::Index, "index"},
                                                           {Pane::Bookmark, "bookmark"}};
        return kNames.at(pane);
    }
};

}  // namespace snippetarium::test
