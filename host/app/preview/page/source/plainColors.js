import { ColorManagement } from "three";

// Colours are shown as the files have them; imported before any is made.
ColorManagement.enabled = false;
