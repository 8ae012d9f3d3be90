package com.lindgrove.vg.types;

import com.lindgrove.jvi.types.VLArrayRef;

/**
 * What runs when an event is fired: the array that says it, which is a text of code, a function
 * handle, or a cell array, and its text for display. Only the array counts when it goes back.
 */
public record VGCallback(String text, VLArrayRef callbackObject) {
  public String getText() {
    return text;
  }

  public VLArrayRef getCallbackObject() {
    return callbackObject;
  }
}
