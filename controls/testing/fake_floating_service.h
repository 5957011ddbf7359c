#pragma once

#include "com/object.h"
#include "d2d/scene/IFloatingNode.h"
#include "scene/testing/fake_site.h"
#include "scene/view.h"

namespace d2d::fakes {

/// Floats one node at a time, in a scene without a window. Stands in a fixture, and is not destroyed by its
/// count.
class fake_floating_service final : public scene::IFloatingNode::IService {
public:
    scene::fakes::fake_site site;   ///< the host of what floats
    com::ptr<scene::view> floated;  ///< null unless something floats

    com::ptr<scene::IFloatingNode> float_node(scene::INode*, scene::INode* content) override {
        return com::create_object<handle>(*this, content);
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        if (!com::answers_to<IService>(id) && !com::same_guid(id, com::guid_of<IUnknown>()))
            return E_NOINTERFACE;
        *out = static_cast<IService*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }

private:
    using IService = scene::IFloatingNode::IService;

    class handle : public com::base_object<com::object_base, scene::IFloatingNode> {
    public:
        handle(fake_floating_service& floats, scene::INode* shown) : service(floats), content(shown) {
            root->add_child(content);
            view->attach_site(&service.site);
            view->set_root(root);
            service.floated = view;
        }

    protected:
        ~handle() {
            service.floated.reset();
            view->set_root(nullptr);
            view->detach_site(&service.site);
            root->remove_child(content);
        }

    private:
        fake_floating_service& service;
        const com::ptr<scene::INode> content;
        const com::ptr<scene::INode> root = scene::create_node();
        const com::ptr<scene::view> view = com::create_object<scene::view>();
    };
};

}  // namespace d2d::fakes
