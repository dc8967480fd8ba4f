#include "acquisition/run/CollectionEngine.h"

#include "acquisition/run/CollectionRun.h"
#include "acquisition/run/SourceCheck.h"

namespace lobegraph {

RunReport CollectionEngine::cmdCollectData_Click() {
  RunFlags& flags = parts_.Flags;
  if (flags.IsCollecting || flags.CloseRequested || !SourceReady(parts_)) return {};
  if (parts_.Window.Controls().Calibrate || flags.IsSweeping) {
    flags.CollectRequested = true;
    return {};
  }
  return CollectionRun(parts_).Take();
}

}  // namespace lobegraph
