// link/transfer/transferTexts.h: texts that several jobs of transfer.h show.
#pragma once

namespace tarvik {

/// Labels while a job runs.
inline constexpr int kTextUploading = 14006;
inline constexpr int kTextDownloading = 14007;
inline constexpr int kTextDeleting = 14008;

/// Messages of more than one job, each with a name.
inline constexpr int kTextConnectionLost = 12703; ///< without a name
inline constexpr int kTextInstrRefuses = 12723;
inline constexpr int kTextReplace = 12734;
inline constexpr int kTextNoFolderUpload = 12744;
inline constexpr int kTextOldFileStays = 12746;

} // namespace tarvik
