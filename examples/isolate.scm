;; Shows the bolts only, then counts how many rays still meet something.
;; pellux-batch frames.step --up z --size 640x400 --script isolate.scm --output isolate.png

(define bolts (sel:by-name "bolt*" "body"))
(sel:clear)
(view:isolate bolts)
(view:iso)
(view:zoom-to-box 12 12 22 88 88 112)
(app:print "bodies shown: " (length bolts))

;; What is hidden is not picked: the middle of the lower plate lets a ray pass.
(define ent (app:pick-face 30 30 1000 0 0 -1 0))
(app:print "a ray down through the plates meets: " (if ent (entity:type ent) "nothing"))
