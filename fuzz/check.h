// What every input is put through. A finding ends the process, after a report.
#pragma once

#include <initializer_list>
#include <string>

#include "model/observation.h"

// Loads, dumps and destroys with all loaders; looks at nothing but blocks that are left over.
void checkSurvives(const std::string& document);

// The same with these loaders, and all that can be seen of it is as the model expects.
void checkAgainstModel(const std::string& document,
                       const std::initializer_list<model::Loader>& loaders = {
                           model::Loader::Full, model::Loader::Aec, model::Loader::BeamForm,
                           model::Loader::Ao, model::Loader::Agc});

// Ends the process unless `report` is empty.
void expectEmpty(const std::string& report, const std::string& input);
