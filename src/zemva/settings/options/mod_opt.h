// The options of one model.
#ifndef ZEMVA_SETTINGS_OPTIONS_MOD_OPT_H
#define ZEMVA_SETTINGS_OPTIONS_MOD_OPT_H

#include <algorithm>
#include <cstdint>
#include <limits>

#include "zemva/base/export.h"
#include "zemva/settings/options/option_types.h"
#include "zemva/vectors/vec_type.h"

namespace zemva {

class Model;
class PrjOpt;

// A plain record that a model owns. LS is the work set that the model is fitted to, PS a prediction
// set. Numbers of components are kept in 8 bits: a setter keeps the nearest number that fits.
class ZEMVA_API ModOpt {
 public:
  // The defaults that stand beside the fields below.
  ModOpt() = default;
  // Takes over a project's options; the fields without one get fixed values. Null gives the values
  // of a model outside a project.
  explicit ModOpt(const PrjOpt* project);

  // Takes over all fields.
  void Copy(const ModOpt& other) { *this = other; }
  // Whether all fields are the same.
  bool operator==(const ModOpt& other) const = default;

  // Whether the X data are centred.
  bool GetIsCenter() const { return is_center_; }
  void SetIsCenter(bool value) { is_center_ = value; }
  // Whether X was set by a design, which always gets a second component.
  bool GetIsXDesigned() const { return is_x_designed_; }
  void SetIsXDesigned(bool value) { is_x_designed_ = value; }
  // Whether components are asked for one after the other.
  bool GetIsSeq() const { return is_seq_; }
  void SetIsSeq(bool value) { is_seq_ = value; }
  // Whether the rules of significance end the search for components.
  bool GetIsRule() const { return is_rule_; }
  void SetIsRule(bool value) { is_rule_ = value; }
  // How components are validated: with the rules, and without them.
  EValidate GetRuleValidate() const { return rule_validate_; }
  void SetRuleValidate(EValidate value) { rule_validate_ = value; }
  EValidate GetSeqValidate() const { return seq_validate_; }
  void SetSeqValidate(EValidate value) { seq_validate_ = value; }
  // The components asked for.
  short GetNComp() const { return n_comp_; }
  void SetNComp(short value) { n_comp_ = Narrow(value); }
  // The most iterations of a component.
  short GetMaxIter() const { return max_iter_; }
  void SetMaxIter(short value) { max_iter_ = value; }
  // The groups of a cross-validation.
  short GetNCV() const { return ncv_; }
  void SetNCV(short value) { ncv_ = value; }

  // How far a correction for missing values may go: for a loading, which only a model reads, and
  // for a score.
  void SetCompLimLoa(float value) { comp_lim_loa_ = value; }
  float GetCLS() const { return comp_lim_scr_; }
  void SetCompLimScr(float value) { comp_lim_scr_ = value; }
  // The most missing values, in per cent, of an observation and of a variable: of the work set, of
  // a prediction set.
  float GetMaxMisValObsLS() const { return max_mis_val_obs_ls_; }
  void SetMaxMisValObsLS(float value) { max_mis_val_obs_ls_ = value; }
  float GetMaxMisValVarLS() const { return max_mis_val_var_ls_; }
  void SetMaxMisValVarLS(float value) { max_mis_val_var_ls_ = value; }
  float GetMaxMisValObsPS() const { return max_mis_val_obs_ps_; }
  void SetMaxMisValObsPS(float value) { max_mis_val_obs_ps_ = value; }
  float GetMaxMisValVarPS() const { return max_mis_val_var_ps_; }
  void SetMaxMisValVarPS(float value) { max_mis_val_var_ps_ = value; }
  // The factor by which a lag counts less than the one before it.
  float GetLagDecay() const { return lag_decay_; }
  void SetLagDecay(float value) { lag_decay_ = value; }
  // Whether a correction for missing values that is cut is reported: of a score, of a loading.
  bool GetIsShoScrLim() const { return is_sho_scr_lim_; }
  void SetIsShoScrLim(bool value) { is_sho_scr_lim_ = value; }
  bool GetIsShoLoaLim() const { return is_sho_loa_lim_; }
  void SetIsShoLoaLim(bool value) { is_sho_loa_lim_ = value; }
  // A free number.
  short GetXOpt1() const { return x_opt1_; }
  void SetXOpt1(short value) { x_opt1_ = value; }

  // The components used.
  short GetAUseLS() const { return a_use_ls_; }
  void SetAUseLS(short value) { a_use_ls_ = Narrow(value); }
  // Whether predicted Y values are transformed back.
  bool GetIsBackTraYLS() const { return is_back_tra_y_ls_; }
  void SetIsBackTraYLS(bool value) { is_back_tra_y_ls_ = value; }
  // Whether distances to the model are normalised.
  bool GetIsNormDistLS() const { return is_norm_dist_ls_; }
  void SetIsNormDistLS(bool value) { is_norm_dist_ls_ = value; }
  // The level of significance, 0 to 1.
  float GetSignLevLS() const { return sign_lev_ls_; }
  void SetSignLevLS(float value) { sign_lev_ls_ = value; }
  // Whether residuals are standardised.
  bool GetIsStdResLS() const { return is_std_res_ls_; }
  void SetIsStdResLS(bool value) { is_std_res_ls_ = value; }

  // The same for a prediction set: the components used, whether predicted Y values are transformed
  // back and distances normalised, and the level of significance.
  short GetAUsePS() const { return a_use_ps_; }
  void SetAUsePS(short value) { a_use_ps_ = Narrow(value); }
  bool GetIsBackTraYPS() const { return is_back_tra_y_ps_; }
  void SetIsBackTraYPS(bool value) { is_back_tra_y_ps_ = value; }
  bool GetIsNormDistPS() const { return is_norm_dist_ps_; }
  void SetIsNormDistPS(bool value) { is_norm_dist_ps_ = value; }
  float GetSignLevPS() const { return sign_lev_ps_; }
  void SetSignLevPS(float value) { sign_lev_ps_ = value; }
  // Whether residuals are weighted by modelling power: of a prediction set, of the work set.
  bool GetIsWResPS() const { return is_w_res_ps_; }
  void SetIsWResPS(bool value) { is_w_res_ps_ = value; }
  bool GetIsWResLS() const { return is_w_res_ls_; }
  void SetIsWResLS(bool value) { is_w_res_ls_ = value; }
  // What becomes of the residuals of a prediction set: to a file, to the window, standardised,
  // saved, scaled.
  bool GetIsResFilePS() const { return is_res_file_ps_; }
  void SetIsResFilePS(bool value) { is_res_file_ps_ = value; }
  bool GetIsResWinPS() const { return is_res_win_ps_; }
  void SetIsResWinPS(bool value) { is_res_win_ps_ = value; }
  bool GetIsStdResPS() const { return is_std_res_ps_; }
  void SetIsStdResPS(bool value) { is_std_res_ps_ = value; }
  bool GetIsSaveResPS() const { return is_save_res_ps_; }
  void SetIsSaveResPS(bool value) { is_save_res_ps_ = value; }
  bool GetIsScaResPS() const { return is_sca_res_ps_; }
  void SetIsScaResPS(bool value) { is_sca_res_ps_ = value; }

  // What is shown: the components, the kind of coefficients, the distance to the model, the marks
  // of observations, how explained variation is given, and the marks of variables.
  short GetAShow() const { return a_show_; }
  void SetAShow(short value) { a_show_ = Narrow(value); }
  CEVecType::EVT GetECoefficient() const { return e_coefficient_; }
  void SetECoefficient(CEVecType::EVT value) { e_coefficient_ = value; }
  EDModType GetDModType() const { return d_mod_type_; }
  void SetDModType(EDModType value) { d_mod_type_ = value; }
  EPltMark GetEObjectPlotMark() const { return e_object_plot_mark_; }
  void SetEObjectPlotMark(EPltMark value) { e_object_plot_mark_ = value; }
  EVariType GetER2() const { return e_r2_; }
  void SetER2(EVariType value) { e_r2_ = value; }
  EPltMark GetEVariablePlotMark() const { return e_variable_plot_mark_; }
  void SetEVariablePlotMark(EPltMark value) { e_variable_plot_mark_ = value; }
  // The part of a name that is a mark: its length and first character.
  short GetObjectPlotMarkLength() const { return object_plot_mark_length_; }
  void SetObjectPlotMarkLength(short value) { object_plot_mark_length_ = value; }
  short GetObjectPlotMarkStart() const { return object_plot_mark_start_; }
  void SetObjectPlotMarkStart(short value) { object_plot_mark_start_ = value; }
  short GetVariablePlotMarkLength() const { return variable_plot_mark_length_; }
  void SetVariablePlotMarkLength(short value) { variable_plot_mark_length_ = value; }
  short GetVariablePlotMarkStart() const { return variable_plot_mark_start_; }
  void SetVariablePlotMarkStart(short value) { variable_plot_mark_start_ = value; }
  // The variable selected, from 1.
  short GetSelectVariable() const { return select_variable_; }
  void SetSelectVariable(short value) { select_variable_ = value; }
  // Whether a person has changed something here.
  bool GetIsModifiedByUser() const { return is_modified_by_user_; }
  void SetIsModifiedByUser(bool value) { is_modified_by_user_ = value; }

 private:
  friend class Model;

  static std::int8_t Narrow(short value) {
    using Limits = std::numeric_limits<std::int8_t>;
    return static_cast<std::int8_t>(std::clamp<short>(value, Limits::min(), Limits::max()));
  }

  bool is_center_ = false;
  bool is_reserved_ = false;  // has its place in the record and no meaning
  bool is_x_designed_ = false;
  bool is_seq_ = true;
  bool is_rule_ = true;
  EValidate rule_validate_ = EValidate::CV;
  EValidate seq_validate_ = EValidate::CV;
  std::int8_t n_comp_ = 0;
  short max_iter_ = 200;
  short ncv_ = 7;
  float comp_lim_loa_ = 3.0F;
  float comp_lim_scr_ = 3.0F;
  float max_mis_val_obs_ls_ = 50.0F;
  float max_mis_val_var_ls_ = 50.0F;
  float max_mis_val_obs_ps_ = 50.0F;
  float max_mis_val_var_ps_ = 50.0F;
  float lag_decay_ = 0.95F;
  bool is_sho_scr_lim_ = false;
  bool is_sho_loa_lim_ = false;
  short x_opt1_ = 0;
  std::int8_t a_use_ls_ = 0;
  bool is_back_tra_y_ls_ = true;
  bool is_norm_dist_ls_ = true;
  float sign_lev_ls_ = 0.05F;
  bool is_std_res_ls_ = true;
  std::int8_t a_use_ps_ = 0;
  bool is_back_tra_y_ps_ = true;
  bool is_norm_dist_ps_ = true;
  float sign_lev_ps_ = 0.05F;
  bool is_w_res_ps_ = false;
  bool is_w_res_ls_ = false;
  bool is_res_file_ps_ = false;
  bool is_res_win_ps_ = false;
  bool is_std_res_ps_ = true;
  bool is_save_res_ps_ = false;
  bool is_sca_res_ps_ = true;
  std::int8_t a_show_ = 0;
  CEVecType::EVT e_coefficient_ = CEVecType::CoeffCS;
  EDModType d_mod_type_ = EDModType::DModX;
  EPltMark e_object_plot_mark_ = EPltMark::Number;
  EVariType e_r2_ = EVariType::R2;
  EPltMark e_variable_plot_mark_ = EPltMark::Name;
  short object_plot_mark_length_ = 8;
  short object_plot_mark_start_ = 1;
  short variable_plot_mark_length_ = 8;
  short variable_plot_mark_start_ = 1;
  short select_variable_ = 1;
  bool is_modified_by_user_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_OPTIONS_MOD_OPT_H
