# Sourced by the scripts: the build directory of a preset of
# CMakePresets.json ("default" builds into build/, every other preset into
# build-<preset>/).
#   preset_dir TOP PRESET
preset_dir() {
  if [ "$2" = default ]; then
    echo "$1/build"
  else
    echo "$1/build-$2"
  fi
}
