// What the reference says beyond what probes show.
#include "facts/Reference.h"

#include <CameraQzSendCmd.h>

#include <map>

namespace qzcam {

const std::map<std::string, const char*>& parameterNotes() {
    static const std::map<std::string, const char*> notes{
        {"burst-capture", "read and kept; no entry carries it"},
        {"qz-face-ae-area", "read and left: no entry carries it"},
        {"picture-size", "width and height, any one character between them"},
        {"qz-dynamic-iso-range", "lowest and highest, any one character between them"},
        {"target-coordinates", "x and y, a comma between them"},
        {"focus-areas", "(left,top,right,bottom,weight); of several areas the last one counts"},
        {"metering-areas", "(left,top,right,bottom,weight); of several areas the last one counts"},
        {"sub-picture-size", "(width,height); what does not parse is written as 0"},
        {"qz-mmi-raw-region", "four numbers in parentheses; what does not parse is written as 0"},
        {"qz-mmi-sub-raw-region", "four numbers in parentheses; what does not parse is written as 0"},
        {"qz-sensor-exposure-time", "seconds, as a fraction, with decimals or whole; 'auto' is 0"},
        {"qz-sensor-iso", "a number; 'auto' is 0"},
        {"qz-sensor-wb", "a number; 'auto' is 0"},
        {"key_exposure_time", "microseconds"},
        {"zoom", "an index: the ratio is (largest - 1) / max-zoom * zoom + 1, with the device's largest"},
        {"post-process-picture-name", "without terminator"},
        {"qz-raw-img-path-name", "without terminator"},
        {"key-qz-2dpanorama-tiny-height",
         "no entry of its own: its tag is asked for without a section, which no device declares"},
        {"mmitest-lowlight-sensor-gain",
         "written on every request, 100 times the value; -100 without the key"},
        {"mmitest-lowlight-sensor-mode", "written on every request; -1 without the key"},
        {"qz-professional-mode",
         "while it is on, an exposure time over a second makes the next capture a long one"},
        {"qz-exposure-mode", "any mode but 0 makes the next capture a long one"},
        {"qz-image-post-process", "'off' also empties the published super-resolution sizes"},
        {"qz-dual-primary-mode", "property camera.debug.mode overrides it"},
        {"qz-face-beauty-preview-only",
         "beauty for chat applications is not written while qz-qzcamera-flag is on, or while property "
         "camera.ignore.chat.facebeauty says so"},
        {"qz-qzcamera-flag", "tells the vendor's camera application from all others"},
        {"video-stabilization",
         "'true' is taken back (ANDROID_CONTROL_VIDEO_STABILIZATION_MODE off) for applications that "
         "properties "
         "camera.ignore.videostdb.all and camera.ignore.videostdb.partial name"},
        {"qz_ois_gryo_offset_calib", "first of the calibration's steps"},
        {"qz_ois_hall_calib", "a calibration step; left out when the tag of a step before it is missing"},
        {"qz_ois_hall_check", "a calibration step; left out when the tag of a step before it is missing"},
        {"qz_ois_set_gryo_gain",
         "(x,y); a calibration step; left out when the tag of a step before it is missing"},
        {"qz_ois_save_gryo_gain",
         "four numbers in parentheses; left out when a step before it is missing its tag or its gain does "
         "not "
         "parse"},
    };
    return notes;
}

std::string noteOn(const std::string& key) {
    const auto& notes = parameterNotes();
    if (const auto found = notes.find(key); found != notes.end()) return found->second;
    for (const ParameterDoc& doc : adapterParameters()) {
        if (doc.key == key) return doc.conditions.front();
    }
    return {};
}

const std::vector<ParameterDoc>& adapterParameters() {
    static const std::vector<ParameterDoc> docs{
        {"camera_sound_state",
         "integer",
         {},
         {},
         {{"0", "the shutter is silent"}},
         {},
         {"read when the host asks for the shutter sound; no entry carries it"}},
    };
    return docs;
}

const std::vector<PublishedDoc>& adapterPublished() {
    static const std::vector<PublishedDoc> docs{
        {"qz-otp-check",
         {"com.ambrix.capture.metadata.qz-otp-check", "int32", "exactly 1"},
         {},
         {},
         {"the last result's, whenever the host asks for it"}},
    };
    return docs;
}

const std::vector<CommandDoc>& commandDocs() {
    static const std::vector<CommandDoc> docs{
        {qz::CMD_GET_FOCUS_VCM_VALUE, "the position of the focus motor, 0 before the first result"},
        {qz::CMD_GET_FOCUS_CONTRAST_VALUE,
         "the next focus contrast; -1 when none comes within three seconds"},
    };
    return docs;
}

const std::vector<PropertyDoc>& propertyDocs() {
    static const std::vector<PropertyDoc> docs{
        {"camera.debug.mode", "0",
         "1, 2 or 3: dualSensorMode is 0, 2 or 3, whatever qz-dual-primary-mode says"},
        {"camera.ignore.chat.facebeauty", "0", "beginning with 1: no face beauty for chat applications"},
        {"camera.ignore.qz.customized.zsl", "0",
         "beginning with 1: the camera application's own zero shutter lag is not wanted"},
        {"camera.ignore.videostdb.all", "0",
         "beginning with 1: no application but the vendor's camera records with video stabilisation"},
        {"camera.ignore.videostdb.partial", "1",
         "beginning with 1: com.snapchat.android and com.instagram.android record without video "
         "stabilisation"},
        {"camera.qzperformex.loglevel", "0",
         "0 to 5: how much of requests and results goes to the log; 1 the kind of a request, 2 and the "
         "chosen "
         "tags of static info and requests, 3 and that of results, 4 and all vendor tags and static entries, "
         "5 and all entries of requests"},
        {"camera.qzperformex.captag", "0", "name of a tag of the static info to show"},
        {"camera.qzperformex.ctrltag", "0", "name of a tag of requests to show"},
        {"camera.qzperformex.stattag", "0", "name of a tag of results to show"},
    };
    return docs;
}

}  // namespace qzcam
