#pragma once

class QTreeView;

namespace snippetarium {

class ContentsModel;

/// How long the typing of a filter may pause before a tree follows, in milliseconds.
inline constexpr int kFilterPause = 200;

/// Opens what a filter has left of a tree, so that one sees what fits it; of more than 500 nodes
/// only so many.
void OpenLoaded(QTreeView& tree, const ContentsModel& model);

}  // namespace snippetarium
