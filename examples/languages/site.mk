#!/usr/bin/make -f
# Builds a small web site from Markdown files, with pictures in two sizes.
#
#   make -f site.mk            builds everything below build/
#   make -f site.mk serve      … and shows it on this machine
#   make -f site.mk DRAFTS=1   … with the pages that are no good yet

SHELL := /bin/bash
.SHELLFLAGS := -eu -c
.DEFAULT_GOAL := all

BUILD ?= build
PANDOC ?= pandoc
PORT = 8000
TITLE = What we saw, and didn't

PAGES := $(wildcard pages/*.md)
PICTURES := $(wildcard pictures/*.jpg pictures/*.png)
STYLE := style.css

ifdef DRAFTS
  PAGES += $(wildcard drafts/*.md)
endif

ifneq ($(shell command -v $(PANDOC)),)
  CONVERT = $(PANDOC) --standalone --css $(STYLE) --metadata title='$(TITLE)'
else
  $(warning There is no pandoc; pages are only framed.)
  CONVERT = ./frame.sh
endif

HTML := $(patsubst %.md,$(BUILD)/%.html,$(notdir $(PAGES)))
SMALL := $(addprefix $(BUILD)/small/,$(notdir $(PICTURES)))
LARGE := $(addprefix $(BUILD)/large/,$(notdir $(PICTURES)))

vpath %.md pages drafts
vpath %.jpg pictures
vpath %.png pictures

.PHONY: all clean serve check list
.DELETE_ON_ERROR:
.SECONDARY: $(SMALL)

all: $(HTML) $(SMALL) $(LARGE) $(BUILD)/index.html $(BUILD)/$(STYLE)

# A page each; the folder must stand before.
$(BUILD)/%.html: %.md | $(BUILD)
	$(CONVERT) -o $@ $<

# Two sizes of a picture, from one recipe: $(call scale,folder,pixels)
define scale
$(BUILD)/$(1)/%: % | $(BUILD)/$(1)
	convert "$$<" -resize $(2)x$(2)\> "$$@"
endef
$(eval $(call scale,small,320))
$(eval $(call scale,large,1600))

$(BUILD) $(BUILD)/small $(BUILD)/large:
	mkdir -p $@

$(BUILD)/$(STYLE): $(STYLE) | $(BUILD)
	cp $< $@

$(BUILD)/index.html: $(HTML) $(MAKEFILE_LIST)
	@echo "Writing $@"
	@{ printf '<h1>%s</h1>\n<ul>\n' "$(TITLE)"; \
	  for page in $(notdir $(HTML)); do \
	    name=$${page%.html}; \
	    printf '<li><a href="%s">%s</a></li>\n' "$$page" "$$name"; \
	  done; \
	  echo '</ul>'; } > $@.part   # not seen before it's whole
	@mv $@.part $@

serve: all
	cd $(BUILD) && python3 -m http.server $(PORT)

check: all
	@if grep -l 'TODO\|FIXME' $(PAGES); then \
	  echo "Something isn't done yet." >&2; exit 1; \
	else true; fi

list:
	$(info $(words $(PAGES)) pages, $(words $(PICTURES)) pictures)
	$(foreach page,$(sort $(PAGES)),$(info - $(basename $(notdir $(page)))))
	@:

clean:
	-$(RM) -r $(BUILD)

export TITLE
-include local.mk
