// The doors through which new instruments come from the menus: for each kind its operation, its entry in the
// main menu and its entry in a page's pop-up menu.
#include "dashboard/frmInterface.h"

namespace vistor {

Instrument* frmInterface::NewVXAGAUGE(float x, float y) {
    return placeNew(Kind::AngularGauge, x, y);
}

Instrument* frmInterface::NewVXALPHANUME(float x, float y) {
    return placeNew(Kind::Alphanumeric, x, y);
}

Instrument* frmInterface::NewVXLED(float x, float y) {
    return placeNew(Kind::Led, x, y);
}

Instrument* frmInterface::NewVXLGAUGE(float x, float y) {
    return placeNew(Kind::LinearGauge, x, y);
}

Instrument* frmInterface::NewVXODO(float x, float y) {
    return placeNew(Kind::Odometer, x, y);
}

Instrument* frmInterface::NewVXPCTBAR(float x, float y) {
    return placeNew(Kind::PercentageBar, x, y);
}

Instrument* frmInterface::NewVXSTRIP(float x, float y) {
    return placeNew(Kind::TimeGraph, x, y);
}

Instrument* frmInterface::NewVXXYGRAPH(float x, float y) {
    return placeNew(Kind::XYGraph, x, y);
}

Instrument* frmInterface::NewVXTEXTTAG(float x, float y) {
    return placeNew(Kind::TextTag, x, y);
}

void frmInterface::mnuVXAGAUGE_Click() {
    NewVXAGAUGE(0, 0);
}

void frmInterface::mnuVXAlphaNume_Click() {
    NewVXALPHANUME(0, 0);
}

void frmInterface::mnuVXLED_Click() {
    NewVXLED(0, 0);
}

void frmInterface::mnuVXLGAUGE_Click() {
    NewVXLGAUGE(0, 0);
}

void frmInterface::mnuVXODO_Click() {
    NewVXODO(0, 0);
}

void frmInterface::mnuVXPCTBAR_Click() {
    NewVXPCTBAR(0, 0);
}

void frmInterface::mnuVXSTRIP_Click() {
    NewVXSTRIP(0, 0);
}

void frmInterface::mnuVXXYGRAPH_Click() {
    NewVXXYGRAPH(0, 0);
}

void frmInterface::mnuVXTEXTTAG_Click() {
    NewVXTEXTTAG(0, 0);
}

void frmInterface::mnuDDVXAgauge_Click() {
    NewVXAGAUGE(PopupX, PopupY);
}

void frmInterface::mnuDDVXAlphaNume_Click() {
    NewVXALPHANUME(PopupX, PopupY);
}

void frmInterface::mnuDDVXLED_Click() {
    NewVXLED(PopupX, PopupY);
}

void frmInterface::mnuDDVXLGAUGE_Click() {
    NewVXLGAUGE(PopupX, PopupY);
}

void frmInterface::mnuDDVXODO_Click() {
    NewVXODO(PopupX, PopupY);
}

void frmInterface::mnuDDVXPCTBAR_Click() {
    NewVXPCTBAR(PopupX, PopupY);
}

void frmInterface::mnuDDVXSTRIP_Click() {
    NewVXSTRIP(PopupX, PopupY);
}

void frmInterface::mnuDDVXXYGRAPH_Click() {
    NewVXXYGRAPH(PopupX, PopupY);
}

void frmInterface::mnuDDVXTEXTTAG_Click() {
    NewVXTEXTTAG(PopupX, PopupY);
}

} // namespace vistor
